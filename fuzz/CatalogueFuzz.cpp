// Any bytes are either a catalogue, whose texts resolve, or a CatalogueException; by both formats.
#include "foundation/core/SmartPtr.h"
#include "nmain/stream/InputStream.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/CatalogueException.h"
#include "nxml/i18n/I18N.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using nurel::i18n::Bundle;
using nurel::i18n::I18N;

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

void parse(const char *name, const std::string &content) {
    nurel::stream::MemoryInputStream stream(name, content);
    try {
        const core::SmartPtr<Bundle> bundle(Bundle::parse(stream));
        I18N &i18n = I18N::getSingleton();
        i18n.setLocale(bundle->getLocale());
        i18n.addBundle(bundle.get());
        std::string buffer;
        require(i18n.resolve(content.c_str(), buffer, true) == buffer.c_str());
        require(i18n[content.c_str()] != nullptr);
        i18n.removeBundle(bundle.get());
    } catch (const nurel::i18n::CatalogueException &error) {
        require(std::string(error.what()).starts_with(name));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (!I18N::isSingletonCreated())
        I18N::create();
    const std::string content(data, data + size);
    parse("fuzz.xml", content);
    parse("fuzz.po", content);
    return 0;
}
