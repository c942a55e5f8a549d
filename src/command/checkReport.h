// What checks found, as text for people and as JSON for programs.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "check/finding.h"

namespace tavisk {

/// One line per finding, and how many there are.
std::string textReport(std::string_view file, const Findings& findings);

/// One object, one finding per line.
std::string jsonReport(std::string_view file, const Findings& findings);

struct CheckedDocument {
    std::string file;
    Findings findings;
    std::optional<RunTimeError> error;  ///< why it could not be checked
};

struct CheckTotals {
    std::size_t documents = 0;
    std::size_t clean = 0;
    std::size_t failed = 0;
    std::size_t findings = 0;

    void count(const CheckedDocument& document);
    std::size_t withFindings() const { return documents - clean - failed; }
};

/// One line for people: "3 documents: 1 clean, 1 with findings, 1 failed; 5 findings".
std::string summaryLine(const CheckTotals& totals);

/// A report on any number of documents, made piece by piece; the pieces follow each other.
class CheckReport {
public:
    virtual ~CheckReport() = default;
    virtual std::string begin() { return {}; }
    virtual std::string add(const CheckedDocument& document) = 0;
    virtual std::string end(const CheckTotals& totals) = 0;
};

std::unique_ptr<CheckReport> textReport();
std::unique_ptr<CheckReport> jsonReport();

}  // namespace tavisk
