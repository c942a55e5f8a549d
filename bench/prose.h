// Words and sentences of help texts about cabinets.
#pragma once

#include <array>
#include <string_view>

namespace tavisk::bench::prose {

inline constexpr std::array<std::string_view, 20> nouns = {
    "door",       "drawer",  "hinge",   "shelf",  "handle",         "plinth",      "side panel",
    "back panel", "worktop", "rail",    "runner", "front",          "corner post", "wall bracket",
    "filler",     "cornice", "divider", "basket", "lift mechanism", "cable outlet"};

inline constexpr std::array<std::string_view, 12> measures = {
    "width",     "height",  "depth", "thickness", "overlap", "gap",
    "clearance", "opening", "load",  "distance",  "offset",  "angle"};

inline constexpr std::array<std::string_view, 16> adjectives = {
    "left",   "right", "upper",  "lower",   "inner",      "outer", "full-height",   "adjustable",
    "narrow", "wide",  "glazed", "painted", "soft-close", "fixed", "height-saving", "standard"};

/// "%n" a noun, "%m" a measure, "%a" an adjective.
inline constexpr std::array<std::string_view, 28> sentences = {
    "The %a %n is mounted before the cabinet is hung on the wall. ",
    "Choose this option when the %n must line up with the %a %n of the neighbouring cabinet. ",
    "If the %m is changed here, the %n is moved with it and keeps its position on the %a side. ",
    "The price does not include the %n. ",
    "Measure the %m at three places and enter the smallest result. ",
    "A %a %n cannot be combined with a %a %n in the same row. ",
    "Leave the field empty to take over the value of the project. ",
    "The library offers this %n in all fronts of the programme, but not with a %a handle. ",
    "Please note that the %m refers to the finished size, edging included. ",
    "The fitter needs at least two people for the %n. ",
    "When the room is not level, adjust the %n with the screws behind the <b>%a %n</b>. ",
    "<i>Delivered unassembled.</i> ",
    "Order the %n as a separate item if the %m is larger than the <b>maximum</b> of the series. ",
    "This value decides whether the %n is drilled on the %a or on the %a side. ",
    "The drawing shows the %n from above. ",
    "For cabinets below a window the %m can be reduced, but never so far that the %n touches the "
    "wall. ",
    "The %a %n carries the whole weight; do not fasten it to the %n. ",
    "See the chapter about the %n for the list of sizes. ",
    "With a %a %n the %m grows on both sides. ",
    "Every %n of this series is tested for 80,000 cycles. ",
    "The %m is limited by the %n, which needs room to turn. ",
    "Ask the supplier for other sizes of the %n. ",
    "Use <u>only</u> the screws that come with the %n. ",
    "The kitchen planner places the %n automatically as soon as the %m is known. ",
    "In a corner the %a %n would hit the %n; choose the narrow version there. ",
    "It is possible to swap the %n later without taking down the cabinet. ",
    "The front is cut after the order, so the %m cannot be changed any more. ",
    "A %n of glass is available in clear, satin and bronze. "};

/// "%f" a formula token as well.
inline constexpr std::array<std::string_view, 8> formulaSentences = {
    "The %m of the %n is %f. ",
    "At present the %a %n has a %m of %f. ",
    "The %n must stay below %f; otherwise the %a %n is used. ",
    "Allow for a %m of %f on the %a side. ",
    "The result, %f, is also printed on the order. ",
    "With these settings the %n measures %f. ",
    "Compare the %m on site with %f before you order the %n. ",
    "The %a %n is available up to %f. "};

inline constexpr std::array<std::string_view, 5> accentedSentences = {
    "The door opens to 110\xC2\xB0 at most, with the damper to 95\xC2\xB0. ",
    "Screws of 3\xC2\xBD \xC3\x97 16 mm hold the %n. ",
    "The caf\xC3\xA9 series by M\xC3\xBCller has a %a %n. ",
    "Surcharge: 14 \xE2\x82\xAC per %n \xE2\x80\x93 see the price list. ",
    "The %m may differ by \xC2\xB1"
    "2 mm, that is \xC2\xBC of the \xE2\x80\x9Cnormal\xE2\x80\x9D value. "};

inline constexpr std::array<std::string_view, 18> titles = {
    "How to mount the",    "Size of the",          "Position of the",  "Colours of the",
    "Material of the",     "Before you order the", "Changing the",     "Limits of the",
    "Questions about the", "Care of the",          "Fittings for the", "Planning the",
    "Drawing of the",      "Options for the",      "Price of the",     "Removing the",
    "Delivery of the",     "Notes on the"};

}  // namespace tavisk::bench::prose
