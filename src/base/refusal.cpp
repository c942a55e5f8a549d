#include "base/refusal.h"

#include "base/text.h"

namespace tavisk {
namespace {

std::string lineOf(const Place& place) { return "line " + std::to_string(place.line); }

}  // namespace

Message Refusal::message() const {
    return {place ? reason + "\r\n" + lineOf(*place) : reason, title, style};
}

std::string Refusal::sentence() const {
    if (place) return reason + " (" + lineOf(*place) + ')';
    return replaceAll(replaceAll(reason, "\r\n\r\n", " "), "\r\n", " ");
}

}  // namespace tavisk
