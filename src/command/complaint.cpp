#include "command/complaint.h"

#include "check/check.h"
#include "check/finding.h"
#include "command/fileError.h"
#include "command/reportText.h"

namespace tavisk {
namespace {

std::string lineOf(const std::string& file, const std::string& what) {
    std::string line;
    appendPlain(line, file);
    line += ": ";
    appendPlain(line, what);
    line += '\n';
    return line;
}

std::string describe(const RunTimeError& error) {
    return "Run-time error '" + std::to_string(error.number()) + "': " + error.what();
}

}  // namespace

std::string complaint(const std::string& file, const Message& rejection) {
    return lineOf(file, "rejected: " + tavisk::rejection(rejection).message);
}

std::string currentComplaint(const std::string& file) {
    try {
        throw;
    } catch (const FileError& error) {
        const bool own = error.file() == file || (file == "-" && error.file() == "standard input");
        return lineOf(file, describe(error) + (own ? "" : " (" + error.file() + ')'));
    } catch (...) {
        return lineOf(file, describe(currentRunTimeError()));
    }
}

std::string missingPictures(const std::string& file, const std::vector<std::string>& addresses) {
    std::string lines;
    for (const std::string& address : addresses)
        lines += lineOf(file, "warning: the picture " + inQuotes(address) + " is missing");
    return lines;
}

}  // namespace tavisk
