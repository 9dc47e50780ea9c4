#include "cli/io/warnings.h"

#include "cli/io/failure.h"
#include "cli/io/standard_io.h"

#include <string>

namespace vantro {

void Warnings::add(std::string_view what) {
    const std::scoped_lock lock(printing_);
    if (!isQuiet_) complain("warning: " + std::string(what));
    ++count_;
}

int Warnings::statusAfter(int status, bool isStrict) const {
    return isStrict && status == success && count_ > 0 ? warned : status;
}

}  // namespace vantro
