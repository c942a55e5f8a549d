// Typed values of elements: bytes kept as base64 text under the data type "bin.base64".
//
// The data type is an attribute `dt` in the XML data-types namespace,
// "urn:schemas-microsoft-com:datatypes"; its prefix is declared on the element or above it.
#pragma once

#include <string>
#include <string_view>

#include "xml/dom.h"

namespace tavisk::dom {

/// Makes `element` a "bin.base64" element that holds `bytes`: the declaration of prefix `dt` and
/// `dt:dt` are added if the data type is not set yet.
void setBase64Value(Document& document, Node& element, std::string_view bytes);

/// Replaces `bytes` by the typed value. With the data type, the base64 content decoded; without it,
/// no bytes when the element is empty, else its content read as base64. Error 13 for anything that
/// is not base64.
void base64Value(const Node& element, std::string& bytes);

/// Text and CDATA content of the element and of everything below it, joined.
std::string content(const Node& element);

}  // namespace tavisk::dom
