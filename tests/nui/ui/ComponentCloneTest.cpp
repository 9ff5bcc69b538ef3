#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "foundation/core/Exception.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <string>

namespace test {

namespace {

class ComponentClone : public EngineFixture {
protected:
    template <class T>
    static core::SmartPtr<T> cloneOf(const T &source) {
        return core::SmartPtr<T>(static_cast<T *>(source.clone()));
    }

    template <class T>
    static std::string refusalOf(const T &source, nurel::core::Object *target) {
        core::CloningOptions options;
        try {
            source._clone(target, options);
        } catch (const core::IllegalArgumentException &e) {
            return e.getMessage();
        }
        return "nothing was raised";
    }
};

class Data : public Component::UserData {};

} // namespace

TEST_F(ComponentClone, BelongsToTheCaller) {
    Leaf source("source");
    auto *copy = static_cast<Leaf *>(source.clone());
    EXPECT_EQ(copy->getRefCount(), 0U);
    delete copy;
}

TEST_F(ComponentClone, HasTheDeclaredStateOfItsSource) {
    Leaf source("source", "special");
    source.setEventMask(0x123);
    source.setTabStop(4);
    source.setAnchor(0x21);
    source.setPosition(Vector2(1, 2), Vector2(3, 4));
    source.setDepth(5);
    source.setSize(Vector2(6, 7), Vector2(0, 0));
    source.setMinimumSize(Vector2(8, 9));
    source.setMaximumSize(Vector2(10, 11));
    source.setAutoSize(2, Vector2(12, 13));
    source.setFixedAspectRatio(2);
    source.setScale(Vector2(2, 3));
    source.setRotation(Matrix3(1, Vector3(0, 0, 1)));
    source.setMargin(Vector4(1, 2, 3, 4));
    source.setZIndex(14);
    source.setEnabled(false);
    source.setVisible(false);
    source.addClass("a");
    source.addClass("b");
    source.setUserData(new Data);
    const auto copy = cloneOf(source);
    EXPECT_STREQ(copy->getName(), "source");
    EXPECT_EQ(copy->getElement(), "special");
    EXPECT_EQ(copy->getEventMask(), 0x123U);
    EXPECT_EQ(copy->getTabStop(), 4);
    EXPECT_EQ(copy->getAnchor(), 0x21U);
    EXPECT_EQ(copy->getComponentPosition().absolute, Vector2(1, 2));
    EXPECT_EQ(copy->getComponentPosition().relative, Vector2(3, 4));
    EXPECT_EQ(copy->getDepth(), 5);
    EXPECT_EQ(copy->getComponentSize().absolute, Vector2(6, 7));
    EXPECT_EQ(copy->getMinimumSize(), Vector2(8, 9));
    EXPECT_EQ(copy->getMaximumSize(), Vector2(10, 11));
    EXPECT_EQ(copy->getAutoSizeFlags(), 2U);
    EXPECT_EQ(copy->getAutoSizeOffset(), Vector2(12, 13));
    EXPECT_EQ(copy->getFixedAspectRatio(), 2);
    EXPECT_EQ(copy->getScale(), Vector2(2, 3));
    EXPECT_EQ(copy->getRotation(), source.getRotation());
    EXPECT_EQ(copy->getMargin(), Vector4(1, 2, 3, 4));
    EXPECT_EQ(copy->getZIndex(), 14);
    EXPECT_FALSE(copy->isSelfVisible());
    EXPECT_EQ(copy->getState(), source.getState());
    EXPECT_TRUE(copy->hasClass("a"));
    EXPECT_TRUE(copy->hasClass("b"));
    EXPECT_EQ(copy->getUserData(), source.getUserData());
    copy->setVisible(true);
    EXPECT_FALSE(copy->isEnabled());
}

TEST_F(ComponentClone, HasTheComputedStateButTheOwnScale) {
    Box parent("parent");
    const core::SmartPtr<Leaf> source(new Leaf("source"));
    parent.setScale(Vector2(3, 3));
    source->setScale(Vector2(2, 2));
    source->setPosition(Vector3(5, 6, 0));
    parent.addChild(source.get());
    parent.update();
    ASSERT_EQ(source->getWorldScale(), Vector2(6, 6));
    source->clean();
    const auto copy = cloneOf(*source);
    EXPECT_EQ(copy->getPosition(), source->getPosition());
    EXPECT_EQ(copy->getWorldPosition(), source->getWorldPosition());
    EXPECT_EQ(copy->getParentRelativePosition(), source->getParentRelativePosition());
    EXPECT_EQ(copy->getSize(), source->getSize());
    EXPECT_EQ(copy->getNaturalSize(), source->getNaturalSize());
    EXPECT_EQ(copy->getParentSize(), source->getParentSize());
    EXPECT_EQ(copy->getMinBound(), source->getMinBound());
    EXPECT_EQ(copy->getMaxBound(), source->getMaxBound());
    EXPECT_EQ(copy->getWorldScale(), Vector2(2, 2));
    EXPECT_EQ(copy->dirty(), 0U);
}

TEST_F(ComponentClone, StandsInNoTreeAndHasNoViewHandlerOrCallbacks) {
    Box parent("parent");
    parent.setVisible(false);
    const core::SmartPtr<Leaf> source(new Leaf("source"));
    parent.addChild(source.get());
    parent.visit(&skin());
    PlainHandler handler("handler", source.get());
    int calls = 0;
    source->KeyCallbacks::subscribeCallback([&](UIEventHandler *, const KeyEvent &) {
        ++calls;
        return false;
    });
    source->enableEvents(UIEvent::ET_KEY_EVENT);
    const auto copy = cloneOf(*source);
    EXPECT_EQ(copy->getParent(), nullptr);
    EXPECT_EQ(copy->getHandler(), nullptr);
    EXPECT_EQ(copy->getView(), nullptr);
    EXPECT_TRUE(copy->isVisible());
    EXPECT_EQ(copy->getHierrarchyDepth(), 0U);
    EXPECT_EQ(copy->handleEvent(KeyEvent(1, true)), copy.get());
    EXPECT_EQ(calls, 0);
    handler.setTarget(nullptr);
}

TEST_F(ComponentClone, IsNotDisabledByTheParentOfItsSource) {
    Leaf source("source");
    source.setParentEnabled(false);
    ASSERT_FALSE(source.isEnabled());
    const auto copy = cloneOf(source);
    EXPECT_TRUE(copy->isEnabled());
    EXPECT_TRUE(copy->hasState(Component::STATE_DISABLED)); // the state is copied as it stands
}

TEST_F(ComponentClone, AViewOfTheTargetIsReleased) {
    Leaf source("source");
    Leaf target("target");
    const core::SmartPtr<ComponentView> view(target.visit(&skin()));
    core::CloningOptions options;
    source._clone(&target, options);
    EXPECT_FALSE(target.hasView());
    EXPECT_EQ(view->getComponent(), nullptr);
}

namespace {

class ForwardingClasses : public Leaf {
public:
    using Leaf::Leaf;
    void addClass(const char *name) override {
        added += name;
        Leaf::addClass(name);
    }
    std::string added;
};

} // namespace

TEST_F(ComponentClone, ClassesComeByTheVirtualOperation) {
    Leaf source("source");
    source.addClass("b");
    source.addClass("a");
    ForwardingClasses target("target");
    target.addClass("old");
    core::CloningOptions options;
    source._clone(&target, options);
    EXPECT_EQ(target.added, "oldab");
    EXPECT_FALSE(target.hasClass("old"));
}

TEST_F(ComponentClone, TheMeshIsClonedWithItsProperties) {
    Leaf source("source");
    EXPECT_FALSE(cloneOf(source)->hasMesh());
    source.setMeshColor(Vector3(0.5f, 0.25f, 0.75f));
    const auto copy = cloneOf(source);
    ASSERT_TRUE(copy->hasMesh());
    EXPECT_NE(copy->getMesh(), source.getMesh());
    EXPECT_EQ(copy->getMeshColor(), Vector3(0.5f, 0.25f, 0.75f));
    copy->setMeshColor(Vector3(0, 0, 0));
    EXPECT_EQ(source.getMeshColor(), Vector3(0.5f, 0.25f, 0.75f));
}

TEST_F(ComponentClone, IntoAnotherClassIsRefused) {
    const Leaf leaf("leaf");
    const Box box("box");
    nurel::core::NamedObject stranger("stranger");
    Leaf otherLeaf("other");
    Box otherBox("other");
    components::Panel panel("panel");
    components::Label label("label");
    Widget widget("widget");
    EXPECT_EQ(refusalOf(leaf, &stranger), "Component cannot be cloned into NamedObject");
    EXPECT_EQ(refusalOf(leaf, nullptr), "Component cannot be cloned into nothing");
    EXPECT_EQ(refusalOf(leaf, &otherBox), "Component cannot be cloned into Container");
    EXPECT_EQ(refusalOf(box, &otherLeaf), "Container cannot be cloned into Component");
    EXPECT_EQ(refusalOf(box, nullptr), "Container cannot be cloned into nothing");
    EXPECT_EQ(refusalOf(widget, &panel), "Widget cannot be cloned into Panel");
    EXPECT_EQ(refusalOf(widget, nullptr), "Widget cannot be cloned into nothing");
    EXPECT_EQ(refusalOf(label, &otherLeaf), "Label cannot be cloned into Component");
    EXPECT_EQ(refusalOf(label, nullptr), "Label cannot be cloned into nothing");
}

TEST_F(ComponentClone, IntoItselfChangesNothing) {
    Box box("box");
    box.addClass("a");
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    box.addChild(leaf.get());
    core::CloningOptions options;
    box._clone(&box, options);
    EXPECT_TRUE(box.hasClass("a"));
    EXPECT_EQ(box.getChildCount(), 1U);
}

TEST_F(ComponentClone, AContainerClonesItsChildrenInOrder) {
    Box source("source");
    for (const int zIndex : {5, 1, 5, 3}) {
        const core::SmartPtr<Leaf> leaf(new Leaf(std::to_string(zIndex).c_str()));
        leaf->setZIndex(zIndex);
        source.addChild(leaf.get());
    }
    source.setScrollMask(Container::SCROLL_VERTICAL);
    source.setClipChildren(false);
    source.setScrollOffset(Vector2(3, 4));
    const auto copy = cloneOf(source);
    ASSERT_EQ(copy->getChildCount(), 4U);
    std::string order;
    for (unsigned int i = 0; i < 4; ++i) {
        order += copy->getChildAt(i)->getName();
        EXPECT_NE(copy->getChildAt(i), source.getChildAt(i));
        EXPECT_EQ(copy->getChildAt(i)->getParent(), copy.get());
    }
    EXPECT_EQ(order, "1355");
    EXPECT_EQ(copy->getZIndexMin(), 0);
    EXPECT_EQ(copy->getZIndexMax(), 5);
    EXPECT_EQ(copy->getScrollMask(), 2U);
    EXPECT_TRUE(copy->isEventEnabled(UIEvent::ET_DRAG_EVENT)); // by the event mask
    EXPECT_FALSE(copy->getClipChildren());
    EXPECT_EQ(copy->getScrollOffset(), Vector2(3, 4));
}

TEST_F(ComponentClone, ALayoutIsClonedForTheCloneWithTheChildrenThatItManages) {
    Box source("source");
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    layout->setSpacing(Vector2(7, 8));
    source.setLayout(layout.get());
    const core::SmartPtr<Leaf> managed(new Leaf("managed"));
    const core::SmartPtr<Leaf> loose(new Leaf("loose"));
    source.addChild(managed.get());
    source.addChild(loose.get(), false);
    const auto copy = cloneOf(source);
    ASSERT_TRUE(copy->hasLayout());
    EXPECT_NE(copy->getLayout(), layout.get());
    EXPECT_EQ(copy->getLayout()->getOwner(), copy.get());
    EXPECT_EQ(copy->getLayout()->getComponentCount(), 1U);
    EXPECT_TRUE(copy->getLayout()->hasComponent(copy->getChildAt(0)));
    EXPECT_FALSE(copy->getLayout()->hasComponent(copy->getChildAt(1)));
    EXPECT_EQ(static_cast<layouts::FlowLayout *>(copy->getLayout())->getSpacing(), Vector2(7, 8));
    EXPECT_EQ(layout->getOwner(), &source);
    EXPECT_EQ(layout->getComponentCount(), 1U);
}

TEST_F(ComponentClone, ScrollBarsAreNotCloned) {
    Box source("source");
    source.setSize(Vector2(100, 100));
    const core::SmartPtr<Leaf> large(new Leaf("large"));
    large->setSize(Vector2(300, 300));
    source.addChild(large.get());
    for (int i = 0; i < 3; ++i)
        source.update();
    ASSERT_NE(source.getScrollInfoH().bar, nullptr);
    const auto copy = cloneOf(source);
    EXPECT_EQ(copy->getChildCount(), 1U);
    EXPECT_EQ(copy->getScrollInfoH().bar, nullptr);
    EXPECT_EQ(copy->getScrollInfoV().bar, nullptr);
    EXPECT_TRUE(copy->getScrollInfoH().scrollable);
    EXPECT_EQ(copy->getScrollInfoH().length, source.getScrollInfoH().length);
    EXPECT_EQ(copy->getContainerSize(), source.getContainerSize());
    EXPECT_EQ(copy->getContentExtentMax(), source.getContentExtentMax());
    EXPECT_EQ(copy->getContentExtentMin(), source.getContentExtentMin());
    EXPECT_EQ(copy->getScrollMin(), source.getScrollMin());
    EXPECT_EQ(copy->getScrollMax(), source.getScrollMax());
}

} // namespace test
