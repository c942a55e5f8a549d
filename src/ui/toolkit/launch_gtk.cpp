#include <gtk/gtk.h>

#include "base/error.h"
#include "ui/toolkit/launch.h"

namespace tavisk {

void openInUsersBrowser(const std::string& address) {
    // Not the toolkit's own call, which watches its child processes with a signal handler.
    if (!gtk_show_uri_on_window(nullptr, address.c_str(), GDK_CURRENT_TIME, nullptr))
        raise(ErrorNumber::fileNotFound);
}

}  // namespace tavisk
