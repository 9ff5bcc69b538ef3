#pragma once

#include "nmain/json/JSObject.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace nurel::json {

struct JSObject::Member {
    std::unique_ptr<char[]> key;
    JSObject value;
};

/// What an object holds: its keys in the order of the document and, when they are many, their indexes in the order of
/// strcmp for look-up by halving. Few keys are faster to walk, and the order stays empty.
struct JSObject::Members {
    static constexpr std::size_t FEW = 12;

    std::vector<Member> list;
    std::vector<std::uint32_t> order;
};

} // namespace nurel::json
