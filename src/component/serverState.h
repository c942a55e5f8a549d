// What keeps the library in a process that creates the class through its factory.
#pragma once

namespace tavisk {

/// Counts for as long as it lives: an object or a lock.
class InUse {
public:
    InUse() noexcept;
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;
    ~InUse();
};

/// A lock that a host takes and releases, by count. Releasing one that was never taken does
/// nothing.
void lockServer() noexcept;
void unlockServer() noexcept;

/// No object and no lock is left, no call is running, and no document is loaded.
bool mayUnload() noexcept;

}  // namespace tavisk
