#include "command/openInput.h"

namespace tavisk {

InputFile openInput(const std::string& path) { return InputFile(std::fopen(path.c_str(), "rb")); }

}  // namespace tavisk
