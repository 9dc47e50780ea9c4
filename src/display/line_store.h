// Room for the lines of a display, each of which is made when it is first asked for: most never are.
#pragma once

#include "display/display_line.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

namespace vantro {

class LineStore {
public:
    explicit LineStore(std::size_t lines) : isMade_(lines), lines_(Room().allocate(lines)) {}
    ~LineStore() { Room().deallocate(lines_, isMade_.size()); }

    LineStore(const LineStore&) = delete;
    LineStore& operator=(const LineStore&) = delete;

    std::size_t size() const { return isMade_.size(); }

    /// A line that was made, or null for one that was not or that has no room here.
    DisplayLine* find(std::size_t index) const {
        return index < isMade_.size() && isMade_[index] != 0 ? lines_ + index : nullptr;
    }

    /// Makes a line that has room here and was not made yet, with a constructor of its own.
    template <class... Arguments>
    DisplayLine& make(std::size_t index, const Arguments&... arguments) {
        isMade_[index] = 1;
        return *std::construct_at(lines_ + index, arguments...);
    }

private:
    using Room = std::allocator<DisplayLine>;
    static_assert(std::is_trivially_destructible_v<DisplayLine>, "nobody ends the lines one by one");

    std::vector<std::uint8_t> isMade_;
    DisplayLine* lines_;
};

}  // namespace vantro
