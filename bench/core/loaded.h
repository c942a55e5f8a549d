// A document that is loaded into a session, for benchmarks that start from there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/assets.h"
#include "editor/helpSession.h"
#include "makeDocument.h"
#include "support/memoryFiles.h"

namespace tavisk::bench {

/// The document of one of the plans, made once: 0 is S, 1 is M, everything else L.
const std::string& documentOfSize(std::int64_t size);

/// Files in memory: what is measured is the core, not the disk.
class LoadedSession {
public:
    explicit LoadedSession(std::string_view xml) { load(xml); }

    void load(std::string_view xml);
    HelpSession& session() noexcept { return session_; }

private:
    static constexpr const char* folder_ = "/tavisk";

    test::MemoryFiles files_ = filesWithPicture();
    HelpSession session_{files_, folder_};

    static test::MemoryFiles filesWithPicture();
};

}  // namespace tavisk::bench
