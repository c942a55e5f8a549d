#include "command/summary.h"

namespace tavisk {

std::string counted(std::size_t count, std::string_view what) {
    std::string text = std::to_string(count);
    text.append(" ").append(what);
    if (count != 1) text += 's';
    return text;
}

void Summary::add(std::size_t count, std::string_view how) {
    if (count == 0) return;
    text_.append(isFirst_ ? ": " : ", ").append(std::to_string(count)).append(" ").append(how);
    isFirst_ = false;
}

}  // namespace tavisk
