#include "nengine/scene/Node.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <string>

namespace nurel {
namespace {

using scene::Frame;
using scene::Node;

std::string names(const Node &node) {
    std::string text;
    for (const auto &child : node.getChildren())
        text += child->getName();
    return text;
}

class NodeOrder : public testing::Test {
public:
    NodeOrder() : node(new Node("node")), a(new Frame("a")), b(new Frame("b")), c(new Frame("c")) {
        node->appendChild(a.get());
        node->appendChild(b.get());
        node->appendChild(c.get());
    }
    core::SmartPtr<Node> node;
    core::SmartPtr<Frame> a, b, c;
};

/// Notes how it is walked, and can take itself or another out on the way.
class Walked : public Frame {
public:
    using Frame::Frame;
    bool updateInternal(float time, bool parentChanged) override {
        ++updates;
        lastTime = time;
        if (leaves)
            getParent()->removeChild(this);
        return Frame::updateInternal(time, parentChanged);
    }
    void updateFX() override { ++effects; }
    int updates = 0;
    int effects = 0;
    float lastTime = 0;
    bool leaves = false;
};

TEST_F(NodeOrder, AppendPrependAndInsertPlaceAChild) {
    EXPECT_EQ(names(*node), "abc");
    node->prependChild(new Frame("x"));
    EXPECT_EQ(names(*node), "xabc");
    node->insertChild(new Frame("y"), 2);
    EXPECT_EQ(names(*node), "xaybc");
    EXPECT_EQ(node->getChildCount(), 5u);
    EXPECT_EQ(node->getChild(1), a.get());
    EXPECT_EQ(node->getChild(5), nullptr);
}

TEST_F(NodeOrder, InsertPastTheEndAppends) {
    node->insertChild(new Frame("x"), 99);
    EXPECT_EQ(names(*node), "abcx");
}

TEST_F(NodeOrder, NullIsSkippedEverywhere) {
    node->appendChild(nullptr);
    node->prependChild(nullptr);
    node->insertChild(nullptr, 1);
    node->removeChild(nullptr);
    EXPECT_EQ(names(*node), "abc");
}

TEST_F(NodeOrder, AddingAChildAgainMovesIt) {
    node->appendChild(a.get());
    EXPECT_EQ(names(*node), "bca");
    node->insertChild(c.get(), 0);
    EXPECT_EQ(names(*node), "cba");
    EXPECT_EQ(a->getRefCount(), 2u);
}

TEST_F(NodeOrder, AChildIsTakenFromItsOldParent) {
    const core::SmartPtr<Node> other(new Node("other"));
    other->appendChild(b.get());
    EXPECT_EQ(names(*node), "ac");
    EXPECT_EQ(b->getParent(), other.get());
}

TEST_F(NodeOrder, RemoveChildIgnoresAStranger) {
    const core::SmartPtr<Node> other(new Node("other"));
    other->removeChild(a.get());
    EXPECT_EQ(a->getParent(), node.get());
    node->removeChild(a.get());
    EXPECT_EQ(a->getParent(), nullptr);
    EXPECT_EQ(a->getRefCount(), 1u);
    EXPECT_EQ(names(*node), "bc");
}

TEST_F(NodeOrder, RemoveChildrenEmptiesIt) {
    node->removeChildren();
    EXPECT_EQ(node->getChildCount(), 0u);
    EXPECT_EQ(a->getParent(), nullptr);
}

TEST_F(NodeOrder, TheListCanBeReorderedInPlace) {
    std::swap(node->getChildren()[0], node->getChildren()[2]);
    EXPECT_EQ(names(*node), "cba");
    EXPECT_EQ(a->getParent(), node.get());
}

TEST_F(NodeOrder, ChildrenReorderedPutsThingsRight) {
    const core::SmartPtr<Node> other(new Node("other"));
    other->appendChild(new Frame("x"));
    auto &list = node->getChildren();
    list.push_back(list[0]);
    list.insert(list.begin(), nullptr);
    list.push_back(other->getChild(0));
    node->childrenReordered();
    EXPECT_EQ(names(*node), "abcx");
    EXPECT_EQ(other->getChildCount(), 0u);
    EXPECT_EQ(node->getChild(3)->getParent(), node.get());
}

TEST_F(NodeOrder, ChildrenOutliveTheirNodeWithoutAParent) {
    node = nullptr;
    EXPECT_EQ(a->getParent(), nullptr);
    EXPECT_EQ(a->getRefCount(), 1u);
}

TEST(Node, CannotBePutBelowItself) {
    const core::SmartPtr<Node> outer(new Node("outer"));
    auto *inner = new Node("inner");
    outer->appendChild(inner);
    try {
        inner->appendChild(outer.get());
        FAIL() << "no exception";
    } catch (const core::IllegalArgumentException &exception) {
        EXPECT_STREQ(exception.what(), "Node outer cannot be put below itself");
    }
    EXPECT_THROW(inner->appendChild(inner), core::IllegalArgumentException);
    EXPECT_EQ(inner->getParent(), outer.get());
}

TEST(Node, UpdateWalksEveryFrameEveryTimeHiddenOnesToo) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *inner = new Node("inner");
    auto *walked = new Walked("walked");
    root->appendChild(inner);
    inner->appendChild(walked);
    inner->setHidden(true);
    root->update(1.5f, true);
    root->update(2.5f, true);
    EXPECT_EQ(walked->updates, 2);
    EXPECT_EQ(walked->lastTime, 2.5f);
    root->updateFX();
    EXPECT_EQ(walked->effects, 1);
}

TEST(Node, UpdateReportsAChangeBelow) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *inner = new Node("inner");
    root->appendChild(inner);
    inner->appendChild(new Frame("leaf"));
    root->update(0, true);
    EXPECT_FALSE(root->updateInternal(0, false));
    inner->getChild(0)->setTranslation({1, 0, 0});
    EXPECT_TRUE(root->updateInternal(0, false));
    EXPECT_FALSE(root->updateInternal(0, false));
}

TEST(Node, AFrameMayLeaveTheSceneInItsOwnUpdate) {
    const core::SmartPtr<Node> root(new Node("root"));
    auto *leaver = new Walked("leaver");
    auto *stayer = new Walked("stayer");
    leaver->leaves = true;
    root->appendChild(leaver);
    root->appendChild(stayer);
    root->update(0, true); // must not run on a frame that was destroyed
    EXPECT_EQ(names(*root), "stayer");
    root->update(0, true);
    EXPECT_GE(stayer->updates, 1);
}

TEST(Node, ACloneHasClonesOfTheChildren) {
    const core::SmartPtr<Node> source(new Node("source"));
    auto *inner = new Node("i");
    source->appendChild(inner);
    inner->appendChild(new Frame("leaf"));
    const core::SmartPtr<Node> copy(static_cast<Node *>(source->core::Object::clone()));
    ASSERT_EQ(copy->getChildCount(), 1u);
    auto *copiedInner = static_cast<Node *>(copy->getChild(0));
    EXPECT_NE(copiedInner, inner);
    EXPECT_STREQ(copiedInner->getChild(0)->getName(), "leaf");
    EXPECT_EQ(copiedInner->getChild(0)->getParent(), copiedInner);
}

} // namespace
} // namespace nurel
