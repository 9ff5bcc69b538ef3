#include "nmain/core/Object.h"
#include "foundation/core/Exception.h"
#include "nmain/core/CloningOptions.h"
#include "nmain/core/NamedObject.h"

#include <gtest/gtest.h>

using nurel::core::CloningOptions;
using nurel::core::NamedObject;
using nurel::core::Object;

namespace {

class Shape : public NamedObject {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }
    using NamedObject::NamedObject;
    using Object::clone;
    Object *clone(CloningOptions &options) const override {
        auto *copy = new Shape;
        _clone(copy, options);
        return copy;
    }
    void _clone(Object *target, CloningOptions &options) const override {
        NamedObject::_clone(target, options);
        if (target->instanceOf(TYPE))
            static_cast<Shape *>(target)->sides = sides;
    }
    int sides = 0;
};

constinit const core::Type Shape::TYPE("Shape", &NamedObject::TYPE);

class Nameless : public Object {};

} // namespace

TEST(Object, KnowsItsRunTimeType) {
    const Shape shape;
    const Object &object = shape;
    EXPECT_EQ(&object.getType(), &Shape::TYPE);
    EXPECT_TRUE(object.instanceOf(Object::TYPE));
    EXPECT_TRUE(object.instanceOf(NamedObject::type()));
    EXPECT_FALSE(NamedObject().instanceOf(Shape::TYPE));
    EXPECT_STREQ(Object::type().getName(), "Object");
    EXPECT_STREQ(NamedObject::type().getName(), "NamedObject");
    EXPECT_EQ(NamedObject::TYPE.getParent(), &Object::TYPE);
    EXPECT_EQ(Object::TYPE.getParent(), nullptr);
}

TEST(Object, ClonesWithItsFieldsAndWithoutItsCount) {
    core::SmartPtr<Shape> shape(new Shape("square"));
    shape->sides = 4;
    core::SmartPtr<Object> copy;
    {
        Object *made = shape->clone();
        EXPECT_EQ(made->getRefCount(), 0u);
        copy = made;
    }
    ASSERT_TRUE(copy->instanceOf(Shape::TYPE));
    EXPECT_EQ(static_cast<Shape *>(copy.get())->sides, 4);
    EXPECT_STREQ(static_cast<Shape *>(copy.get())->getName(), "square");
}

TEST(Object, NotesTheCopyInTheOptions) {
    CloningOptions options;
    const Shape shape;
    const core::SmartPtr<Object> copy(shape.clone(options));
    EXPECT_EQ(options.getCloned(&shape), copy.get());
}

TEST(Object, ThatDoesNotCloneSaysSo) {
    const NamedObject object("plain");
    try {
        object.clone();
        FAIL() << "cloned";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "NamedObject cannot be cloned");
    }
}

TEST(Object, ClonesIntoAnObjectOfAnotherClassWhatItCan) {
    CloningOptions options;
    Shape shape("square");
    shape.sides = 4;
    NamedObject named;
    shape._clone(&named, options);
    EXPECT_STREQ(named.getName(), "square");
    Nameless nameless;
    shape._clone(&nameless, options);
    EXPECT_EQ(options.getCloned(&shape), &nameless);
}

TEST(Object, HasANumberForItsClass) {
    const Shape shape;
    EXPECT_EQ(shape.getSUID(), Shape("other").getSUID());
    EXPECT_NE(shape.getSUID(), NamedObject().getSUID());
    // The known 64-bit FNV-1a hash of "Object".
    EXPECT_EQ(Nameless().getSUID(), [] {
        std::uint64_t hash = 14695981039346656037u;
        for (const char c : {'O', 'b', 'j', 'e', 'c', 't'})
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
        return hash;
    }());
}

TEST(Object, TellsItsTypeInMessages) {
    EXPECT_EQ(Nameless().toString(), "Object");
    EXPECT_EQ(Shape("square").toString(), "square(Shape)");
}
