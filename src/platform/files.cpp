#include "platform/files.h"

namespace tavisk {

void Files::replace(const std::string& path, std::initializer_list<std::string_view> parts) {
    replaceBy(path, [parts](const Write& write) {
        for (const std::string_view part : parts)
            write(part);
    });
}

}  // namespace tavisk
