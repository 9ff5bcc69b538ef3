#include "nmain/core/Serializable.h"
#include "foundation/core/Exception.h"
#include "nmain/core/NamedObject.h"
#include "nmain/stream/InputStream.h"
#include "nmain/stream/OutputStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

using nurel::core::NamedObject;
using nurel::core::Object;
using nurel::stream::InputStream;
using nurel::stream::OutputStream;

namespace {

/// Writes to a text; kept here so that these tests need no file or stream of the library.
class TextOutput : public OutputStream {
public:
    void write(const void *buffer, std::size_t size) override { text.append(static_cast<const char *>(buffer), size); }
    const char *getName() const override { return "text"; }
    std::string text;
};

/// Gives its text out in small pieces, as a stream may.
class TextInput : public InputStream {
public:
    explicit TextInput(std::string text) : mText(std::move(text)) {}
    std::size_t read(void *buffer, std::size_t size) override {
        const std::size_t count = std::min({size, std::size_t{3}, mText.size() - mAt});
        std::memcpy(buffer, mText.data() + mAt, count);
        mAt += count;
        return count;
    }
    const char *getName() const override { return "text"; }

private:
    std::string mText;
    std::size_t mAt = 0;
};

class Old : public NamedObject {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }
    void deserializeLegacy1(InputStream &) override { setName("from format 1"); }
};

constinit const core::Type Old::TYPE("Old", &NamedObject::TYPE);

std::string save(const Object &object) {
    TextOutput out;
    object.save(out);
    return out.text;
}

std::string load(Object &object, const std::string &text) {
    TextInput in(text);
    try {
        object.load(in);
    } catch (const core::IllegalStateException &exception) {
        return exception.what();
    }
    return "loaded";
}

} // namespace

TEST(Serializable, ReadsBackWhatItWrote) {
    for (const std::string &name : {std::string(), std::string("form"), std::string(100'000, 'n')}) {
        NamedObject object("before");
        EXPECT_EQ(load(object, save(NamedObject(name.c_str()))), "loaded");
        EXPECT_EQ(object.getName(), name);
    }
}

TEST(Serializable, WritesFormatTypeAndFields) {
    using namespace std::string_literals;
    EXPECT_EQ(save(NamedObject("ok")), "NUS\2\13\0\0\0NamedObject\2\0\0\0ok"s);
}

TEST(Serializable, TakesOnlyItsOwnClass) {
    NamedObject object("before");
    EXPECT_EQ(load(object, save(Old())), "Cannot read NamedObject: the stream holds Old");
    Old old;
    EXPECT_EQ(load(old, save(NamedObject("x"))), "Cannot read Old: the stream holds NamedObject");
    EXPECT_STREQ(object.getName(), "before");
}

TEST(Serializable, RefusesWhatHoldsNoObject) {
    NamedObject object("before");
    EXPECT_EQ(load(object, ""), "Cannot read NamedObject: the stream holds no object");
    EXPECT_EQ(load(object, "NUS"), "Cannot read NamedObject: the stream holds no object");
    EXPECT_EQ(load(object, "something else"), "Cannot read NamedObject: the stream holds no object");
    EXPECT_EQ(load(object, "NUS\3"), "Cannot read NamedObject: the stream has the unknown format 3");
    EXPECT_STREQ(object.getName(), "before");
}

TEST(Serializable, RefusesAStreamThatIsCutAnywhere) {
    const std::string whole = save(NamedObject("form"));
    for (std::size_t size = 4; size < whole.size(); ++size) {
        NamedObject object("before");
        EXPECT_EQ(load(object, whole.substr(0, size)), "Cannot read NamedObject: the stream ends early") << size;
        EXPECT_STREQ(object.getName(), "before");
    }
}

TEST(Serializable, DoesNotBelieveALengthBeyondReason) {
    NamedObject object;
    EXPECT_EQ(load(object, "NUS\2\xff\xff\xff\xff"), "Cannot read NamedObject: a text has more than 16 MiB");
}

TEST(Serializable, DoesNotWriteATextBeyondReason) {
    const NamedObject object(std::string((16u << 20) + 1, 'x').c_str());
    TextOutput out;
    try {
        object.save(out);
        FAIL() << "written";
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "Cannot write NamedObject: a text has more than 16 MiB");
    }
}

TEST(Serializable, ReadsAnOlderFormatThatTheClassKnows) {
    using namespace std::string_literals;
    Old old;
    EXPECT_EQ(load(old, "NUS\1\3\0\0\0Old"s), "loaded");
    EXPECT_STREQ(old.getName(), "from format 1");
    EXPECT_EQ(load(old, "NUS\0\3\0\0\0Old"s), "Cannot read Old: it has no format 0");
    NamedObject object;
    EXPECT_EQ(load(object, "NUS\1\13\0\0\0NamedObject"s), "Cannot read NamedObject: it has no format 1");
}

TEST(Serializable, ChecksTheHeaderAlone) {
    TextOutput out;
    const NamedObject object("form");
    object.checkWrite(out);
    TextInput in(out.text);
    EXPECT_EQ(object.checkRead(in), NamedObject::FORMAT);
}
