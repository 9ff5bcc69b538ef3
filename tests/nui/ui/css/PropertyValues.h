#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace nurel::ui::css {

/// One declaration and what it leaves.
struct PropertyCase {
    std::string name;
    std::string cssName;
    std::vector<std::string> words;

    /// For each word "+" if it is taken, "-" if not, and the value index behind it: "+1 +2 -2".
    std::string steps;

    /// As describeStates() has them.
    std::string states;

    /// As describeValues() has them.
    std::string values;
};

inline void PrintTo(const PropertyCase &row, std::ostream *out) {
    *out << row.cssName << ':';
    for (const std::string &word : row.words)
        *out << ' ' << word.substr(0, 40);
}

class PropertyValues : public testing::TestWithParam<PropertyCase> {};

/// For INSTANTIATE_TEST_SUITE_P.
inline std::string nameOfPropertyCase(const testing::TestParamInfo<PropertyCase> &row) {
    return row.param.name;
}

} // namespace nurel::ui::css
