#include "host/CompoundFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/automation.h"

namespace host {

namespace {

constexpr std::size_t sectorSize = 512;
constexpr std::size_t smallSectorSize = 64;
constexpr std::size_t entrySize = 128;
/// Shorter streams lie in small sectors of a stream that they share.
constexpr std::uint32_t leastInSectors = 4096;
constexpr std::uint32_t nothing = 0xFFFFFFFF;
constexpr std::uint32_t chainEnd = 0xFFFFFFFE;

/// Sectors of one size and the table that joins them to chains. Each belongs to one chain, once: so no chain
/// runs in a circle, and what is read is never more than the file.
class Sectors {
  public:
    Sectors(std::string bytes, std::size_t size, std::string_view table)
        : bytes_(std::move(bytes)), size_(size), used_(bytes_.size() / size) {
        for (std::size_t place = 0; place < table.size(); place += sizeof(std::uint32_t)) {
            next_.push_back(numberAt<std::uint32_t>(table, place));
        }
    }

    std::string chain(std::uint32_t start) {
        std::string result;
        for (std::uint32_t number = start; number != chainEnd; number = next_[number]) {
            if (number >= next_.size() || number >= used_.size() || used_[number]) {
                damagedFile();
            }
            used_[number] = true;
            result.append(bytes_, number * size_, size_);
        }
        return result;
    }

  private:
    std::string bytes_;
    std::size_t size_;
    std::vector<bool> used_;
    std::vector<std::uint32_t> next_;
};

/// The sectors of a file with the allocation table that its header points to.
Sectors sectorsOf(std::string_view bytes) {
    using namespace std::string_view_literals;
    constexpr std::size_t tablePlaces = 0x4C;
    constexpr std::uint32_t mostTableSectors = (sectorSize - tablePlaces) / sizeof(std::uint32_t);
    const auto tableSectors = numberAt<std::uint32_t>(bytes, 0x2C);
    // Version 3, the order of bytes, and the sizes of both kinds of sectors as powers of two.
    const bool known = bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv) &&
                       bytes.substr(0x1A).starts_with("\x03\0\xFE\xFF\x09\0\x06\0"sv) &&
                       numberAt<std::uint32_t>(bytes, 0x38) == leastInSectors &&
                       tableSectors <= mostTableSectors && bytes.size() >= sectorSize;
    if (!known) {
        damagedFile();
    }
    const std::string_view sectors = bytes.substr(sectorSize);
    std::string table;
    for (std::uint32_t index = 0; index < tableSectors; ++index) {
        const std::size_t place = numberAt<std::uint32_t>(bytes, tablePlaces + index * sizeof(std::uint32_t));
        if (place >= sectors.size() / sectorSize) {
            damagedFile();
        }
        table += sectors.substr(place * sectorSize, sectorSize);
    }
    return {std::string(sectors), sectorSize, table};
}

enum class Kind : std::uint8_t { Storage = 1, Stream = 2, Root = 5 };

/// One of the directory's entries: a storage or a stream.
class Entry {
  public:
    explicit Entry(std::string_view bytes) : bytes_(bytes) {}

    Kind kind() const { return static_cast<Kind>(numberAt<std::uint8_t>(bytes_, 0x42)); }
    /// The entries beside this one in the tree of their storage.
    std::uint32_t left() const { return numberAt<std::uint32_t>(bytes_, 0x44); }
    std::uint32_t right() const { return numberAt<std::uint32_t>(bytes_, 0x48); }
    /// Any one of a storage's own entries.
    std::uint32_t child() const { return numberAt<std::uint32_t>(bytes_, 0x4C); }
    std::string_view classId() const { return bytes_.substr(0x50, 16); }
    std::uint32_t start() const { return numberAt<std::uint32_t>(bytes_, 0x74); }
    std::uint32_t size() const { return numberAt<std::uint32_t>(bytes_, 0x78); }

    std::string name() const {
        constexpr std::size_t unit = sizeof(char16_t);
        constexpr std::size_t longest = 32 * unit;
        const std::size_t size = numberAt<std::uint16_t>(bytes_, 0x40);  // The zero at the end is counted.
        if (size <= unit || size > longest) {
            damagedFile();
        }
        std::string name;
        for (std::size_t place = 0; place < size - unit; place += unit) {
            const auto character = numberAt<std::uint16_t>(bytes_, place);
            if (character > 0x7E) {
                damagedFile();
            }
            name += static_cast<char>(character);
        }
        return name;
    }

  private:
    std::string_view bytes_;
};

class Reader {
  public:
    explicit Reader(std::string_view bytes)
        : sectors_(sectorsOf(bytes)),
          directory_(sectors_.chain(numberAt<std::uint32_t>(bytes, 0x30))),
          seen_(directory_.size() / entrySize),
          small_(sectors_.chain(root().start()), smallSectorSize,
                 sectors_.chain(numberAt<std::uint32_t>(bytes, 0x3C))) {}

    CompoundFile read() {
        CompoundFile file{.classId = std::string(root().classId())};
        /// Entries that wait to be looked at, with the paths of their storages.
        std::vector<std::pair<std::uint32_t, std::string>> waiting{{root().child(), ""}};
        while (!waiting.empty()) {
            const auto [number, path] = std::move(waiting.back());
            waiting.pop_back();
            if (number == nothing) {
                continue;
            }
            const Entry entry = unseen(number);
            waiting.insert(waiting.end(), {{entry.left(), path}, {entry.right(), path}});
            std::string name = path + entry.name();
            if (entry.kind() == Kind::Stream) {
                file.streams[std::move(name)] = contents(entry);
            } else if (entry.kind() == Kind::Storage && name.size() < longestPath) {
                waiting.emplace_back(entry.child(), std::move(name) + '/');
            } else {
                damagedFile();
            }
        }
        return file;
    }

  private:
    /// Far more than there is in messages.
    static constexpr std::size_t longestPath = 300;

    Entry entryAt(std::size_t number) const {
        return Entry(std::string_view(directory_).substr(number * entrySize, entrySize));
    }
    Entry root() const {
        if (entryAt(0).kind() != Kind::Root) {
            damagedFile();
        }
        return entryAt(0);
    }
    Entry unseen(std::uint32_t number) {
        if (number >= seen_.size() || seen_[number]) {
            damagedFile();
        }
        seen_[number] = true;
        return entryAt(number);
    }

    std::string contents(const Entry& entry) {
        const std::uint32_t size = entry.size();
        if (size == 0) {
            return {};
        }
        std::string data = (size < leastInSectors ? small_ : sectors_).chain(entry.start());
        if (data.size() < size) {
            damagedFile();
        }
        data.resize(size);
        return data;
    }

    Sectors sectors_;
    std::string directory_;
    std::vector<bool> seen_;
    Sectors small_;
};

}  // namespace

void damagedFile() {
    constexpr auto corrupt = static_cast<std::int32_t>(0x80030109);  // STG_E_DOCFILECORRUPT
    throw automation::Error(corrupt, L"The document has been corrupted.", L"Redemption");
}

CompoundFile readCompoundFile(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace host
