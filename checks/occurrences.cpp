#include "checks/occurrences.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace checks {

namespace {

using Parts = std::span<const std::wstring_view>;

/// The automaton of Aho and Corasick: a tree of the parts' characters, in which a search that fails goes on
/// with the longest shorter start that still fits, so that it never steps back in the text.
///
/// Nodes are numbered level by level; those below one node lie side by side, in the order of their
/// characters.
class PartTree {
  public:
    /// The parts are sorted.
    explicit PartTree(Parts parts) : ends_(parts.size()) {
        grow(parts);
        link();
    }

    bool allOccurIn(std::wstring_view text) {
        std::uint32_t node = root;
        for (const wchar_t character : text) {
            if (node == root && !mayStart_[lowByte(character)]) {
                continue;  // Nearly all of an ordinary text.
            }
            node = next(node, character);
            nodes_[node].reached = true;
        }
        // Whoever reaches a part has also reached the parts at its end, whose nodes come before its own.
        for (std::size_t reached = nodes_.size() - 1; reached > root; --reached) {
            if (nodes_[reached].reached) {
                nodes_[nodes_[reached].shorter].reached = true;
            }
        }
        return std::ranges::all_of(ends_, [this](std::uint32_t end) { return nodes_[end].reached; });
    }

  private:
    static constexpr std::uint32_t root = 0;

    struct Node {
        /// What leads here from the node above.
        wchar_t character = 0;
        bool reached = false;
        std::uint32_t firstChild = 0;
        /// The node of the longest end of this one's text that is another node's text.
        std::uint32_t shorter = root;
    };
    /// Which parts start with a node's text.
    struct Range {
        std::size_t first;
        std::size_t last;
    };

    static std::size_t lowByte(wchar_t character) { return static_cast<std::size_t>(character) & 0xFF; }

    std::uint32_t size() const { return static_cast<std::uint32_t>(nodes_.size()); }

    void grow(Parts parts) {
        nodes_.push_back({.reached = true});  // The empty text occurs in every text.
        std::vector<Range> level{{0, parts.size()}};
        std::uint32_t node = root;
        for (std::size_t depth = 0; !level.empty(); ++depth) {
            std::vector<Range> below;
            for (Range range : level) {
                nodes_[node].firstChild = size();
                // In sorted order those that end here come first.
                for (; range.first < range.last && parts[range.first].size() == depth; ++range.first) {
                    ends_[range.first] = node;
                }
                while (range.first < range.last) {
                    const std::size_t start = range.first;
                    const wchar_t character = parts[start][depth];
                    while (range.first < range.last && parts[range.first][depth] == character) {
                        ++range.first;
                    }
                    nodes_.push_back({.character = character});
                    below.push_back({start, range.first});
                }
                ++node;
            }
            level = std::move(below);
        }
        nodes_.push_back({.firstChild = size()});  // Tells where the children of the last node end.
    }

    void link() {
        for (std::uint32_t first = nodes_[root].firstChild; first < nodes_[root + 1].firstChild; ++first) {
            mayStart_[lowByte(nodes_[first].character)] = true;
        }
        for (std::uint32_t node = root; node + 1 < size(); ++node) {
            for (std::uint32_t below = nodes_[node].firstChild; below < nodes_[node + 1].firstChild;
                 ++below) {
                nodes_[below].shorter =
                    node == root ? root : next(nodes_[node].shorter, nodes_[below].character);
            }
        }
    }

    /// The node behind `node` when this character follows.
    std::uint32_t next(std::uint32_t node, wchar_t character) const {
        for (;;) {
            const auto first = nodes_.begin() + nodes_[node].firstChild;
            const auto last = nodes_.begin() + nodes_[node + 1].firstChild;
            const auto found = std::ranges::lower_bound(first, last, character, {}, &Node::character);
            if (found != last && found->character == character) {
                return static_cast<std::uint32_t>(found - nodes_.begin());
            }
            if (node == root) {
                return root;
            }
            node = nodes_[node].shorter;
        }
    }

    std::vector<Node> nodes_;
    /// Whether a part starts with a character that ends in this byte.
    std::array<bool, 256> mayStart_{};
    /// The node of each part.
    std::vector<std::uint32_t> ends_;
};

/// How many of the sorted parts make a tree with no more nodes than the limit; at least one.
std::size_t partsOfOneTree(Parts parts, std::size_t limit) {
    std::size_t nodes = parts.front().size();
    std::size_t count = 1;
    for (; count < parts.size(); ++count) {
        const std::wstring_view part = parts[count];
        const auto [own, other] = std::ranges::mismatch(part, parts[count - 1]);
        nodes += static_cast<std::size_t>(part.end() - own);
        if (nodes > limit) {
            break;
        }
    }
    return count;
}

}  // namespace

bool allOccur(const std::vector<std::wstring>& parts, std::wstring_view text) {
    std::vector<std::wstring_view> sorted(parts.begin(), parts.end());
    if (std::ranges::any_of(sorted, [text](std::wstring_view part) { return part.size() > text.size(); })) {
        return false;
    }
    std::ranges::sort(sorted);
    // Several trees rather than one that is larger than the text. Any two that follow each other are larger
    // together, so that all the passes over the text are in proportion to the parts.
    for (Parts rest = sorted; !rest.empty();) {
        const std::size_t count = partsOfOneTree(rest, text.size());
        if (!PartTree(rest.first(count)).allOccurIn(text)) {
            return false;
        }
        rest = rest.subspan(count);
    }
    return true;
}

}  // namespace checks
