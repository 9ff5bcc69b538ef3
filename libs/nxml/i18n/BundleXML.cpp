#include "foundation/core/SmartPtr.h"
#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/detail/CatalogueText.h"

#include <pugixml.hpp>

#include <cstring>

namespace nurel::i18n {

namespace {

// Where the node's name stands in the text, one behind its "<".
std::size_t locate(const pugi::xml_node &node) {
    const std::ptrdiff_t offset = node.offset_debug();
    return offset > 0 ? static_cast<std::size_t>(offset) - 1 : 0;
}

void readText(const CatalogueText &text, const pugi::xml_node &element, Bundle &bundle) {
    const pugi::xml_attribute key = element.attribute("key");
    if (!key)
        text.fail(locate(element), "<text> has no key");
    std::string content;
    for (const pugi::xml_node &part : element.children()) {
        if (part.type() == pugi::node_element)
            text.fail(locate(part), "<%s> in a <text>, which holds nothing but text", part.name());
        content += part.value();
    }
    bundle.put(key.value(), content.c_str());
}

} // namespace

Bundle *Bundle::parseXML(stream::InputStream &stream) {
    const CatalogueText text(stream);
    pugi::xml_document document;
    // a text of white space alone is a text too
    const pugi::xml_parse_result result =
        document.load_buffer(text.getText().data(), text.getText().size(),
                             pugi::parse_default | pugi::parse_ws_pcdata_single, pugi::encoding_utf8);
    if (!result)
        text.fail(static_cast<std::size_t>(result.offset), "%s", result.description());

    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), "catalogue") != 0)
        text.fail(locate(root), "<catalogue> expected, <%s> found", root.name());
    for (pugi::xml_node other = root.next_sibling(); other; other = other.next_sibling()) {
        if (other.type() == pugi::node_element)
            text.fail(locate(other), "<%s> after the end of the catalogue", other.name());
    }

    ::core::SmartPtr<Bundle> bundle(new Bundle(root.attribute("locale").value()));
    for (const pugi::xml_node &element : root.children()) {
        if (element.type() != pugi::node_element)
            continue;
        if (std::strcmp(element.name(), "text") != 0)
            text.fail(locate(element), "<text> expected, <%s> found", element.name());
        readText(text, element, *bundle);
    }
    return bundle.release();
}

} // namespace nurel::i18n
