// What checks found, as text for people and as JSON for programs.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "base/error.h"
#include "check/finding.h"

namespace tavisk {

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

/// One line per finding, and a sum at the end.
std::unique_ptr<CheckReport> textReport();

/// One finding per line. A document that is `alone` is the whole object, several are members of it.
std::unique_ptr<CheckReport> jsonReport(bool alone);

}  // namespace tavisk
