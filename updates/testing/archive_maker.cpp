#include "updates/testing/archive_maker.hpp"

#include "platform/system/process.hpp"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <span>

namespace updates::testing {
namespace {

using Type = MadeEntry::Type;
using Writer = std::unique_ptr<archive, int (*)(archive*)>;

void require(bool isGood, archive* writer) {
    if (!isGood) {
        std::fprintf(stderr, "archive maker: %s\n", archive_error_string(writer));
        std::abort();
    }
}

la_ssize_t append(archive* /*writer*/, void* bytes, const void* more, std::size_t count) {
    const auto* const begin = static_cast<const std::byte*>(more);
    auto* const all = static_cast<std::vector<std::byte>*>(bytes);
    all->insert(all->end(), begin, begin + count);
    return static_cast<la_ssize_t>(count);
}

mode_t fileType(Type type) {
    switch (type) {
    case Type::folder:
        return AE_IFDIR;
    case Type::symbolicLink:
        return AE_IFLNK;
    case Type::device:
        return AE_IFCHR;
    case Type::fifo:
        return AE_IFIFO;
    default:
        return AE_IFREG;
    }
}

void writeEntry(archive* writer, const MadeEntry& made) {
    const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                         archive_entry_free);
    archive_entry_set_pathname(entry.get(), made.name.c_str());
    archive_entry_set_filetype(entry.get(), fileType(made.type));
    archive_entry_set_perm(entry.get(), made.type == Type::folder ? made.mode | 0111U : made.mode);
    const bool isFile = made.type == Type::file;
    archive_entry_set_size(entry.get(),
                           isFile ? static_cast<la_int64_t>(made.content.size() + made.zeros) : 0);
    if (made.type == Type::symbolicLink) {
        archive_entry_set_symlink(entry.get(), made.content.c_str());
    } else if (made.type == Type::hardLink) {
        archive_entry_set_hardlink(entry.get(), made.content.c_str());
    }
    require(archive_write_header(writer, entry.get()) >= ARCHIVE_WARN, writer);
    if (made.type == Type::file) {
        require(archive_write_data(writer, made.content.data(), made.content.size()) >= 0, writer);
        const std::vector<char> zeros(std::size_t{64} * 1024);
        for (std::uint64_t left = made.zeros; left > 0;) {
            const auto count = std::min<std::uint64_t>(left, zeros.size());
            require(archive_write_data(writer, zeros.data(), count) >= 0, writer);
            left -= count;
        }
    }
}

} // namespace

std::vector<std::byte> makeArchive(const std::vector<MadeEntry>& entries, Packing packing) {
    std::vector<std::byte> bytes;
    const Writer writer(archive_write_new(), archive_write_free);
    require((packing == Packing::zip        ? archive_write_set_format_zip
             : packing == Packing::sevenZip ? archive_write_set_format_7zip
             : packing == Packing::cpio
                 ? archive_write_set_format_cpio
                 : archive_write_set_format_pax_restricted)(writer.get()) == ARCHIVE_OK,
            writer.get());
    if (packing == Packing::xz || packing == Packing::gzip) {
        const bool isXz = packing == Packing::xz;
        require((isXz ? archive_write_add_filter_xz
                      : archive_write_add_filter_gzip)(writer.get()) == ARCHIVE_OK &&
                    archive_write_set_filter_option(writer.get(), isXz ? "xz" : "gzip",
                                                    "compression-level",
                                                    isXz ? "0" : "1") == ARCHIVE_OK,
                writer.get());
    }
    require(archive_write_set_bytes_in_last_block(writer.get(), 1) == ARCHIVE_OK &&
                archive_write_open(writer.get(), &bytes, nullptr, append, nullptr) == ARCHIVE_OK,
            writer.get());
    for (const MadeEntry& entry : entries) {
        writeEntry(writer.get(), entry);
    }
    require(archive_write_close(writer.get()) == ARCHIVE_OK, writer.get());
    return bytes;
}

ArchiveManifest goodManifest(const std::string& version) {
    return {"Larkvox",
            "larkvox",
            "example.fennick.larkvox",
            version,
            std::string(platform::thisPlatform()),
            LARKVOX_TEST_PUBLIC_KEY};
}

std::vector<MadeEntry> goodUpdate(const std::string& version, const std::string& program) {
    const std::string folder = "Larkvox/versions/" + version;
    return {{"Larkvox", Type::folder, {}},
            {"Larkvox/larkvox", Type::file, "the launcher", 0755},
            {"Larkvox/current", Type::symbolicLink, "versions/" + version, 0777},
            {"Larkvox/versions", Type::folder, {}},
            {folder, Type::folder, {}},
            {folder + "/bin", Type::folder, {}},
            {folder + "/bin/larkvox", Type::file, program, 0755},
            {folder + "/manifest.json", Type::file, archiveManifestText(goodManifest(version))},
            {folder + "/libexec", Type::folder, {}},
            {folder + "/libexec/larkvox-install", Type::file, "the helper", 0755},
            {folder + "/share", Type::folder, {}},
            {folder + "/share/larkvox", Type::folder, {}},
            {folder + "/share/larkvox/version", Type::file, version},
            {folder + "/share/larkvox/empty", Type::file, {}}};
}

std::vector<MadeEntry> updateWith(const std::string& version, std::vector<MadeEntry> more) {
    auto entries = goodUpdate(version, "#!/bin/sh\n");
    std::ranges::move(more, std::back_inserter(entries));
    return entries;
}

} // namespace updates::testing
