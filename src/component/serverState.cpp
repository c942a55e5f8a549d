#include "component/serverState.h"

#include <atomic>

#include "component/component.h"

namespace tavisk {
namespace {

std::atomic<long> objects;
std::atomic<long> locks;

}  // namespace

InUse::InUse() noexcept { ++objects; }

InUse::~InUse() { --objects; }

void lockServer() noexcept { ++locks; }

void unlockServer() noexcept {
    long held = locks;
    while (held > 0 && !locks.compare_exchange_weak(held, held - 1)) {
    }
}

bool mayUnload() noexcept { return objects == 0 && locks == 0 && !isFormInUse(); }

}  // namespace tavisk
