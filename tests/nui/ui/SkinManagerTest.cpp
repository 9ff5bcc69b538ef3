#include "nui/ui/SkinManager.h"

#include "nui/ui/ManagerTest.h"

using namespace nurel::ui;

namespace {

/// Without the fixture's own skin.
class SkinManagerTest : public test::ManagerTest {
public:
    SkinManagerTest() {
        skins().setDefaultSkin(nullptr);
        skins().removeSkin(mSkin.get());
    }

    static SkinManager &skins() { return SkinManager::getSingleton(); }
};

} // namespace

TEST_F(SkinManagerTest, HasNoSkinAndNoDefaultAtFirst) {
    EXPECT_EQ(skins().size(), 0u);
    EXPECT_EQ(skins().getDefaultSkin(), nullptr);
    EXPECT_EQ(skins().getSkin("plain", true), nullptr);
    EXPECT_EQ(skins().get("plain"), nullptr);
}

TEST_F(SkinManagerTest, FindsASkinByItsName) {
    const core::SmartPtr<test::BlankSkin> other(new test::BlankSkin("other"));
    skins().addSkin(mSkin.get());
    skins().addSkin(other.get());
    EXPECT_EQ(skins().getSkin("plain", false), mSkin.get());
    EXPECT_EQ(skins().getSkin("other", false), other.get());
}

TEST_F(SkinManagerTest, GivesTheDefaultSkinForANameThatItHasNot) {
    skins().setDefaultSkin(mSkin.get());
    EXPECT_EQ(skins().getSkin("unknown", true), mSkin.get());
    EXPECT_EQ(skins().getSkin("unknown", false), nullptr);
    skins().setDefaultSkin(nullptr);
    EXPECT_EQ(skins().getSkin("unknown", true), nullptr);
}

TEST_F(SkinManagerTest, NeverLooksUpANullOrEmptyName) {
    const core::SmartPtr<test::BlankSkin> nameless(new test::BlankSkin(""));
    skins().addSkin(nameless.get());
    EXPECT_EQ(skins().getSkin("", false), nullptr);
    EXPECT_EQ(skins().getSkin(nullptr, false), nullptr);
    skins().setDefaultSkin(mSkin.get());
    EXPECT_EQ(skins().getSkin("", true), mSkin.get());
    EXPECT_EQ(skins().getSkin(nullptr, true), mSkin.get());
}

TEST_F(SkinManagerTest, ReplacesASkinOfTheSameNameAndReleasesIt) {
    const core::SmartPtr<test::BlankSkin> second(new test::BlankSkin("plain"));
    skins().addSkin(mSkin.get());
    EXPECT_EQ(mSkin->getRefCount(), 2u);
    skins().addSkin(second.get());
    EXPECT_EQ(mSkin->getRefCount(), 1u);
    EXPECT_EQ(skins().getSkin("plain", false), second.get());
}

TEST_F(SkinManagerTest, RemovesWhateverStandsUnderTheSkinsName) {
    const core::SmartPtr<test::BlankSkin> second(new test::BlankSkin("plain"));
    skins().addSkin(mSkin.get());
    skins().removeSkin(second.get());
    EXPECT_EQ(skins().getSkin("plain", false), nullptr);
    EXPECT_EQ(mSkin->getRefCount(), 1u);
}

TEST_F(SkinManagerTest, HoldsNoReferenceOnTheDefaultSkin) {
    skins().setDefaultSkin(mSkin.get());
    EXPECT_EQ(mSkin->getRefCount(), 1u);
}

TEST_F(SkinManagerTest, ForgetsADefaultSkinThatDies) {
    skins().setDefaultSkin(mSkin.get());
    mSkin = nullptr;
    EXPECT_EQ(skins().getDefaultSkin(), nullptr);
}

TEST_F(SkinManagerTest, IgnoresNull) {
    skins().addSkin(nullptr);
    skins().removeSkin(nullptr);
    EXPECT_EQ(skins().size(), 0u);
}

TEST_F(SkinManagerTest, ReleasesItsSkinsAtItsEnd) {
    skins().addSkin(mSkin.get());
    skins().setDefaultSkin(mSkin.get());
    SkinManager::deleteSingleton();
    EXPECT_FALSE(SkinManager::isSingletonCreated());
    EXPECT_EQ(mSkin->getRefCount(), 1u);
    SkinManager::deleteSingleton();
    EXPECT_EQ(skins().getDefaultSkin(), nullptr);
}
