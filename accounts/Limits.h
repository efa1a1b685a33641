#pragma once

#include <cstddef>

namespace accounts::rowset {

/// How far a text is read before it is refused: far beyond any rowset's needs, and small enough that a
/// hostile text grows little in memory. They are counted in what is kept of a text, so that a rowset keeps
/// them however its characters are escaped.
struct Limits {
    std::size_t deepestNesting = 32;
    std::size_t mostAttributes = 10'000;
    std::size_t mostNameSpaces = 100;
    /// Of what precedes the rows: a few hundred characters for each column.
    std::size_t longestFrame = 1'000'000;
    std::size_t mostUndeclaredColumns = 1'000;
};

}  // namespace accounts::rowset
