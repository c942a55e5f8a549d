#include "ui/preview/browserPolicy.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tavisk {
namespace {

bool startsWithoutCase(std::string_view text, std::string_view lowerCaseStart) {
    return text.size() >= lowerCaseStart.size() &&
           std::equal(
               lowerCaseStart.begin(), lowerCaseStart.end(), text.begin(),
               [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

bool mayOpenOutside(std::string_view address) {
    constexpr std::array<std::string_view, 3> schemes{"http:", "https:", "mailto:"};
    return std::any_of(schemes.begin(), schemes.end(), [address](std::string_view scheme) {
        return startsWithoutCase(address, scheme);
    });
}

bool isPlaceOf(std::string_view page, std::string_view address) {
    return address.size() > page.size() && address.starts_with(page) && address[page.size()] == '#';
}

}  // namespace

NavigationAnswer answerNavigation(const Navigation& navigation, std::string_view page) {
    if (!navigation.linkClicked) return NavigationAnswer::ignore;
    if (isPlaceOf(page, navigation.address))
        return navigation.newWindow ? NavigationAnswer::ignore : NavigationAnswer::show;
    return mayOpenOutside(navigation.address) ? NavigationAnswer::openOutside
                                              : NavigationAnswer::ignore;
}

NavigationAnswer HeldPage::answer(const Navigation& navigation) {
    // What a page asks for comes after the page itself.
    if (loading_ && !navigation.newWindow && navigation.address == address_) {
        loading_ = false;
        return NavigationAnswer::show;
    }
    return answerNavigation(navigation, address_);
}

}  // namespace tavisk
