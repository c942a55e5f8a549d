// Findings in SARIF 2.1.0, the format of code-review pages.
#pragma once

#include <memory>

#include "command/checkReport.h"

namespace tavisk {

std::unique_ptr<CheckReport> sarifReport();

}  // namespace tavisk
