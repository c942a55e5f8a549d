#include "base/message.h"

namespace tavisk {

Message errorReport(int number, const std::string& text) {
    return {"Run-time error '" + std::to_string(number) + "':\r\n\r\n" + text, defaultTitle,
            BoxStyle::okCritical};
}

}  // namespace tavisk
