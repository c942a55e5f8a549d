// Run-time errors: the number and text that every failure carries to the host.
#pragma once

#include <stdexcept>
#include <string>

namespace tavisk {

enum class ErrorNumber : int {
    invalidArgument = 5,
    overflow = 6,
    outOfMemory = 7,
    typeMismatch = 13,
    badFileName = 52,
    fileNotFound = 53,
    deviceError = 57,
    diskFull = 61,
    permissionDenied = 70,
    pathNotFound = 76,
    objectNotSet = 91,
    cannotLoadObject = 361,
    objectUnloaded = 364,
};

/// `what()` is the fixed text of the number, for example "Overflow" for 6.
class RunTimeError : public std::runtime_error {
public:
    explicit RunTimeError(ErrorNumber number);

    int number() const noexcept { return static_cast<int>(number_); }

private:
    ErrorNumber number_;
};

[[noreturn]] void raise(ErrorNumber number);

/// The run-time error that stands for the exception being handled: itself, or 7 for a failed
/// allocation, or 5 for anything unforeseen. Call inside a catch block only.
RunTimeError currentRunTimeError() noexcept;

}  // namespace tavisk
