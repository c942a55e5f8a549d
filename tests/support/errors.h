// The number of the run-time error that an action ends in.
#pragma once

#include "base/error.h"

namespace tavisk::test {

/// 0 when the action succeeds; any other exception travels on and fails the test.
template <class Action>
int errorOf(Action action) {
    try {
        action();
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

}  // namespace tavisk::test
