#include "base/error.h"

#include <new>

namespace tavisk {
namespace {

const char* textOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::invalidArgument: return "Invalid procedure call or argument";
        case ErrorNumber::overflow: return "Overflow";
        case ErrorNumber::outOfMemory: return "Out of memory";
        case ErrorNumber::typeMismatch: return "Type mismatch";
        case ErrorNumber::badFileName: return "Bad file name or number";
        case ErrorNumber::fileNotFound: return "File not found";
        case ErrorNumber::deviceError: return "Device I/O error";
        case ErrorNumber::diskFull: return "Disk full";
        case ErrorNumber::permissionDenied: return "Permission denied";
        case ErrorNumber::pathNotFound: return "Path not found";
        case ErrorNumber::objectNotSet: return "Object variable or With block variable not set";
        case ErrorNumber::cannotLoadObject: return "Can't load or unload this object";
        case ErrorNumber::objectUnloaded: return "Object was unloaded";
    }
    return "Invalid procedure call or argument";
}

}  // namespace

RunTimeError::RunTimeError(ErrorNumber number)
    : std::runtime_error(textOf(number)), number_(number) {}

void raise(ErrorNumber number) { throw RunTimeError(number); }

RunTimeError currentRunTimeError() noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::outOfMemory);
    } catch (const std::length_error&) {
        return RunTimeError(ErrorNumber::outOfMemory);
    } catch (...) {
        return RunTimeError(ErrorNumber::invalidArgument);
    }
}

}  // namespace tavisk
