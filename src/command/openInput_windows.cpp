#include "command/openInput.h"

#include "base/wideText_windows.h"

namespace tavisk {

InputFile openInput(const std::string& path) {
    return InputFile(::_wfopen(widePath(path).c_str(), L"rb"));
}

}  // namespace tavisk
