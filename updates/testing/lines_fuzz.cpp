// The small texts that the updater reads. The first byte tells which: "r" a record, "l" a line of
// the helper, "m" a manifest, "s" what stands beside a feed. Whatever comes: what is understood can
// be written, and is the same when it is read again.
#include "updates/archive/archive_manifest.hpp"
#include "updates/feed/signed_feed.hpp"
#include "updates/feed/version_order.hpp"
#include "updates/install/install_protocol.hpp"
#include "updates/install/installation_record.hpp"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace updates;

void require(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "lines_fuzz: %s\n", what);
        std::abort();
    }
}

void checkRecord(std::string_view text) {
    const InstallationRecord record = parseRecord(text);
    // Each becomes the name of a folder, of which one may be removed.
    for (const std::string& version : {record.highest, record.previous, record.failed,
                                       record.trial ? record.trial->version : std::string(),
                                       record.trial ? record.trial->previous : std::string()}) {
        require(version.empty() || (isVersion(version) && version.find('/') == std::string::npos &&
                                    version.find("..") == std::string::npos),
                "a version that is a path");
    }
    require(!record.trial || record.trial->starts >= 0, "fewer starts than none");
    require(recordText(parseRecord(recordText(record))) == recordText(record), "another record");
}

void checkLine(std::string_view text) {
    if (const auto message = readInstallLine(text)) {
        const std::string line = installLine(*message);
        require(line.find('\n') == std::string::npos, "more than a line");
        require(readInstallLine(line) == message, "another message");
    }
}

void checkManifest(std::string_view text) {
    if (const auto manifest = readArchiveManifest(text)) {
        require(readArchiveManifest(archiveManifestText(*manifest)) == manifest,
                "another manifest");
    }
}

void checkStatement(std::string_view text) {
    if (const auto statement = readFeedStatement(text)) {
        require(feedStatementText(*statement) == text, "a second way to write it");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.starts_with('r')) {
        checkRecord(input.substr(1));
    } else if (input.starts_with('l')) {
        checkLine(input.substr(1));
    } else if (input.starts_with('m')) {
        checkManifest(input.substr(1));
    } else if (input.starts_with('s')) {
        checkStatement(input.substr(1));
    }
    return 0;
}
