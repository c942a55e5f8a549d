// What a page would load from other places than its own folder.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavisk {

/// How many different addresses of servers a browser would load for this page by itself: pictures,
/// stylesheets and the like, not the goals of links.
std::size_t countOtherPlaces(std::string_view html);

}  // namespace tavisk
