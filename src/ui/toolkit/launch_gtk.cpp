#include <gtk/gtk.h>

#include "platform/error.h"
#include "platform/wx/launch.h"

namespace tavisk {

void openInUsersBrowser(const std::string& address) {
    // Not the toolkit's own call, which watches its child processes with a signal handler.
    if (!gtk_show_uri_on_window(nullptr, address.c_str(), GDK_CURRENT_TIME, nullptr))
        raise(ErrorNumber::fileNotFound);
}

}  // namespace tavisk
