// Style sheets: whatever the text, a sheet or a LexerException, and the same one however the bytes come in.
#include "foundation/logging/Logger.h"
#include "nmain/parser/LexerException.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSLexer.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/Property.h"
#include "nui/ui/css/Rule.h"
#include "nui/ui/css/Stylable.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using nurel::ui::css::CSS;
using nurel::ui::css::Property;

void require(bool condition) {
    if (!condition)
        std::abort();
}

class NoLog : public logging::Sink {
public:
    NoLog() { logging::Logger::mROOT_LOGGER.setSink(this); }
    ~NoLog() override { logging::Logger::mROOT_LOGGER.setSink(nullptr); }
    void write(logging::Level, const char *) override {}
};

/// Gives a few bytes at a time.
class SlowStream : public nurel::stream::MemoryInputStream {
public:
    using MemoryInputStream::MemoryInputStream;

    std::size_t read(void *buffer, std::size_t size) override {
        mStep = mStep % 3 + 1;
        return MemoryInputStream::read(buffer, std::min(size, mStep));
    }

private:
    std::size_t mStep = 0;
};

/// Fits every second word, and copies what it gets.
class Everything : public nurel::ui::css::Stylable {
public:
    bool isID(const char *name) const override { return fits(name); }
    bool isElement(const char *word) const override { return fits(word); }
    bool hasClass(const char *name) const override { return fits(name); }
    bool hasState(unsigned int bits) const override { return (bits & 0x2Au) == bits; }
    void apply(const Property *property) override {
        const core::SmartPtr<Property> copy(property->clone());
        require(copy->getName() == property->getName());
        for (int i = -1; i <= static_cast<int>(property->getValueCount()); ++i)
            property->getValueString(i);
    }

private:
    static bool fits(const char *word) { return (static_cast<unsigned char>(*word) & 1u) == 0; }
};

std::string describe(const CSS &css) {
    std::string result;
    std::string text;
    for (const auto &rule : css) {
        result.append(rule->toString(text)).append("{").append(std::to_string(rule->getLine()));
        for (const auto &property : rule->getProperties()) {
            result.append(" ").append(Property::unparse(property.first));
            for (unsigned int i = 0; i < property.second->getValueCount(); ++i)
                result += static_cast<char>('0' + property.second->getValueState(static_cast<int>(i)));
        }
        result += "}";
    }
    return result;
}

std::string parse(nurel::stream::InputStream &stream) {
    try {
        const std::unique_ptr<CSS> css(nurel::ui::css::CSSParser().parse(&stream));
        Everything object;
        css->style(&object);
        return describe(*css);
    } catch (const nurel::parser::LexerException &exception) {
        require(*exception.what() != '\0');
        return exception.what();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const NoLog log;
    const std::string text(reinterpret_cast<const char *>(data), size);
    nurel::stream::MemoryInputStream whole("whole.css", text);
    SlowStream slow("slow.css", text);
    require(parse(whole) == parse(slow));
    using nurel::ui::css::CSSLexer;
    require(CSSLexer().findToken(CSSLexer::COMMA)->isEnabled());
    return 0;
}
