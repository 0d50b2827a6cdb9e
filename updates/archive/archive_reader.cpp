#include "updates/archive/archive_reader.hpp"

#include <archive.h>
#include <archive_entry.h>

namespace updates {
namespace {

std::string text(const char* characters) {
    return characters == nullptr ? std::string() : std::string(characters);
}

ArchiveEntry::Kind kindOf(archive_entry* entry) {
    if (archive_entry_hardlink(entry) != nullptr) {
        return ArchiveEntry::Kind::other;
    }
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
        return ArchiveEntry::Kind::file;
    case AE_IFDIR:
        return ArchiveEntry::Kind::folder;
    case AE_IFLNK:
        return ArchiveEntry::Kind::link;
    default:
        return ArchiveEntry::Kind::other;
    }
}

} // namespace

void ArchiveReader::Close::operator()(archive* reader) const {
    archive_read_free(reader);
}

ArchiveReader::ArchiveReader(std::span<const std::byte> bytes) : reader_(archive_read_new()) {
    if (reader_ == nullptr) {
        damage_ = "no memory";
        return;
    }
    // Only what updates are made with: every further format is more code that reads foreign bytes.
    if (archive_read_support_format_tar(reader_.get()) != ARCHIVE_OK ||
        archive_read_support_filter_xz(reader_.get()) != ARCHIVE_OK ||
        archive_read_open_memory(reader_.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) {
        noteDamage();
    }
}

ArchiveReader::~ArchiveReader() = default;

std::optional<ArchiveEntry> ArchiveReader::next() {
    if (!damage_.empty()) {
        return std::nullopt;
    }
    archive_entry* entry = nullptr;
    const int status = archive_read_next_header(reader_.get(), &entry);
    if (status == ARCHIVE_EOF) {
        return std::nullopt;
    }
    if (status != ARCHIVE_OK) { // also where it only warns
        noteDamage();
        return std::nullopt;
    }
    ArchiveEntry found;
    found.kind = kindOf(entry);
    found.name = text(archive_entry_pathname(entry));
    found.linkTarget = text(archive_entry_symlink(entry));
    found.mode = static_cast<unsigned>(archive_entry_perm(entry)) & 07777U;
    if (archive_entry_size(entry) > 0) {
        found.size = static_cast<std::uint64_t>(archive_entry_size(entry));
    }
    return found;
}

std::optional<std::size_t> ArchiveReader::read(std::span<std::byte> buffer) {
    const la_ssize_t count = archive_read_data(reader_.get(), buffer.data(), buffer.size());
    if (count < 0) {
        noteDamage();
        return std::nullopt;
    }
    return static_cast<std::size_t>(count);
}

std::uint64_t ArchiveReader::consumed() const {
    const la_int64_t bytes = reader_ == nullptr ? 0 : archive_filter_bytes(reader_.get(), -1);
    return bytes < 0 ? 0 : static_cast<std::uint64_t>(bytes);
}

void ArchiveReader::noteDamage() {
    damage_ = text(archive_error_string(reader_.get()));
    if (damage_.empty()) {
        damage_ = "damaged";
    }
}

} // namespace updates
