#include <glib.h>
#include <set>
#include <string>
#include <string_view>

#include "ui/support/complaints.h"

namespace tavisk::test {
namespace {

std::string messageOf(const GLogField* fields, gsize count) {
    for (gsize i = 0; i < count; ++i) {
        if (std::string_view(fields[i].key) != "MESSAGE") continue;
        const auto* const text = static_cast<const char*>(fields[i].value);
        return fields[i].length < 0 ? std::string(text)
                                    : std::string(text, static_cast<std::size_t>(fields[i].length));
    }
    return {};
}

GLogWriterOutput tellOnce(GLogLevelFlags level, const GLogField* fields, gsize count,
                          gpointer told) {
    if (!static_cast<std::set<std::string>*>(told)->insert(messageOf(fields, count)).second)
        return G_LOG_WRITER_HANDLED;
    return g_log_writer_default(level, fields, count, nullptr);
}

}  // namespace

void tellComplaintsOnce() {
    static std::set<std::string> told;
    g_log_set_writer_func(tellOnce, &told, nullptr);
}

}  // namespace tavisk::test
