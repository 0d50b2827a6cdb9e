#include "updates/install/installer.hpp"

#include "updates/feed/signature.hpp"
#include "updates/feed/version_order.hpp"
#include "updates/install/installation_record.hpp"

#include <unistd.h>

#include <cerrno>
#include <compare>
#include <cstdio>
#include <utility>

namespace updates {
namespace {

constexpr const char* treeName = "tree";         // in staging: the new version
constexpr const char* replacedName = "replaced"; // in staging: what was in its place

Refusal refused(UpdateProblem problem, std::string detail = {}) {
    return {problem, std::move(detail)};
}

/// Nothing where there is no error.
std::optional<Refusal> refusalOf(int error, const char* doing) {
    return error == 0 ? std::nullopt : std::optional(systemRefusal(error, doing));
}

int rename(int from, const std::string& name, int to, const std::string& newName) {
    return renameat(from, name.c_str(), to, newName.c_str()) == 0 ? 0 : errno;
}

} // namespace

Installer::Installer(UpdateTrust trust, InstallRequest request)
    : trust_(std::move(trust)), request_(std::move(request)) {}

Installer::~Installer() {
    if (isStaging_) {
        // What stays is removed by the next start, or the next update.
        [[maybe_unused]] const int error = platform::removeTree(root_.get(), stagingName);
    }
}

std::optional<Refusal> Installer::stage(std::span<const std::byte> archive,
                                        const ArchiveProgress& progress) {
    MaybeRefused refusal = open();
    refusal = refusal ? refusal : verify(archive);
    refusal = refusal ? refusal : checkVersion();
    refusal = refusal ? refusal : makeStaging();
    if (refusal) {
        return refusal;
    }
    const platform::Descriptor tree = platform::openFolder(staging_.get(), treeName);
    if (!tree) {
        return systemRefusal(errno, "opening the staging folder");
    }
    const UnpackResult unpacked = unpackArchive(archive, tree.get(), [&](std::uint64_t done) {
        wasCancelled_ = progress && !progress(done);
        return !wasCancelled_;
    });
    if (const auto* const failure = std::get_if<Refusal>(&unpacked)) {
        return *failure;
    }
    if (auto other = checkManifest(std::get<UnpackedArchive>(unpacked).manifest)) {
        return other;
    }
    // One flush for all files and folders: one for each would take many times as long.
    return refusalOf(platform::syncAll(tree.get()), "flushing");
}

Installer::MaybeRefused Installer::verify(std::span<const std::byte> archive) const {
    if (archive.size() != request_.length) {
        return refused(UpdateProblem::wrongLength, std::to_string(archive.size()) + " bytes, not " +
                                                       std::to_string(request_.length));
    }
    const auto fault = verifySignature(archive, request_.signature, trust_.publicKey);
    if (!fault) {
        return {};
    }
    switch (*fault) {
    case SignatureFault::missing:
        return refused(UpdateProblem::signatureMissing);
    case SignatureFault::badKey:
        return refused(UpdateProblem::noKey, "built with something that is no key");
    case SignatureFault::malformed:
    case SignatureFault::wrong:
        break;
    }
    return refused(UpdateProblem::signatureWrong);
}

Installer::MaybeRefused Installer::open() {
    if (trust_.publicKey.empty()) {
        return refused(UpdateProblem::noKey, "built without a key");
    }
    root_ = platform::openFolder(request_.root);
    versions_ = root_ ? platform::openFolder(root_.get(), versionsName) : platform::Descriptor();
    if (!versions_) {
        return systemRefusal(errno, "opening the installation");
    }
    if (const int error = platform::becomeOwnerOf(root_.get()); error != 0) {
        return systemRefusal(error, "becoming the installation's owner");
    }
    if (currentVersion(root_.get()).empty()) {
        return refused(UpdateProblem::installerMissing, "no installation that updates itself");
    }
    if (const int error = makeState(root_.get()); error != 0) {
        return systemRefusal(error, "making the folder of what is remembered");
    }
    const platform::Descriptor state = platform::openFolder(root_.get(), stateName);
    lock_ = state ? platform::openLockFile(state.get(), updateLockName) : platform::Descriptor();
    // A moment's patience: another copy may just be tidying up.
    const int error = lock_ ? platform::lock(lock_.get(), platform::Sharing::exclusive, 10) : errno;
    return error == EWOULDBLOCK ? refused(UpdateProblem::busy)
                                : refusalOf(error, "locking the installation");
}

Installer::MaybeRefused Installer::checkVersion() const {
    const std::string& version = request_.version;
    if (!isVersion(version)) {
        return refused(UpdateProblem::otherVersion, "not a version");
    }
    const std::string current = currentVersion(root_.get());
    if (version == current) {
        return refused(UpdateProblem::alreadyInstalled, current);
    }
    const InstallationRecord record = readRecord(root_.get(), current);
    // The highest one may be installed again: it may have been taken back after failing.
    if (std::is_lteq(compareVersions(version, current)) ||
        std::is_lteq(compareVersions(version, request_.installed)) ||
        std::is_lt(compareVersions(version, record.highest))) {
        return refused(UpdateProblem::notNewer, version);
    }
    return {};
}

Installer::MaybeRefused Installer::makeStaging() {
    constexpr const char* making = "making the staging folder";
    if (const int error = platform::removeTree(root_.get(), stagingName); error != 0) {
        return systemRefusal(error, "removing what an earlier update left");
    }
    if (const int error = reserveRoom(root_.get()); error != 0) {
        return systemRefusal(error, "reserving room for the record");
    }
    isStaging_ = true;
    if (const int error = platform::makeFolder(root_.get(), stagingName); error != 0) {
        return systemRefusal(error, making);
    }
    staging_ = platform::openFolder(root_.get(), stagingName);
    return refusalOf(staging_ ? platform::makeFolder(staging_.get(), treeName) : errno, making);
}

Installer::MaybeRefused Installer::checkManifest(const ArchiveManifest& manifest) const {
    if (manifest.product != trust_.product || manifest.name != trust_.name ||
        manifest.identifier != trust_.identifier) {
        return refused(UpdateProblem::otherProduct, manifest.product + ' ' + manifest.identifier);
    }
    if (manifest.platform != trust_.platform) {
        return refused(UpdateProblem::otherPlatform, manifest.platform);
    }
    if (manifest.version != request_.version) {
        return refused(UpdateProblem::otherVersion, manifest.version);
    }
    return {};
}

std::optional<Refusal> Installer::install() {
    const RecordLock lock(root_.get());
    if (!lock.holds()) {
        return lock.error() == EWOULDBLOCK ? refused(UpdateProblem::busy)
                                           : systemRefusal(lock.error(), "locking the record");
    }
    // The user may have put another version there by hand meanwhile.
    MaybeRefused refusal = checkVersion();
    refusal = refusal ? refusal : moveIntoPlace();
    if (refusal) {
        return refusal;
    }
    refusal = makeCurrent();
    if (refusal) {
        moveBack();
    }
    return refusal;
}

/// Moves the new version among the others, where nothing refers to it yet.
Installer::MaybeRefused Installer::moveIntoPlace() {
    const std::string& version = request_.version;
    if (const auto present = platform::openFolder(versions_.get(), version)) {
        // An update that was cut off before it was current, or a version that was taken back.
        if (platform::lock(present.get(), platform::Sharing::exclusive) != 0) {
            return refused(UpdateProblem::busy, "this version is running");
        }
        if (const int error = rename(versions_.get(), version, staging_.get(), replacedName);
            error != 0) {
            return systemRefusal(error, "clearing the version's place");
        }
    }
    if (const int error = rename(staging_.get(), treeName, versions_.get(), version); error != 0) {
        return systemRefusal(error, "moving the version into its place");
    }
    if (fsync(versions_.get()) != 0 || fsync(staging_.get()) != 0) {
        const auto refusal = systemRefusal(errno, "flushing the folder of versions");
        moveBack();
        return refusal;
    }
    return {};
}

/// Nothing refers to the new version: back with it, to be removed with the rest.
void Installer::moveBack() {
    [[maybe_unused]] const int error =
        rename(versions_.get(), request_.version, staging_.get(), treeName);
}

/// First what to remember, which counts only once the pointer has moved, then the pointer.
Installer::MaybeRefused Installer::makeCurrent() {
    const std::string current = currentVersion(root_.get());
    InstallationRecord record = readRecord(root_.get(), current);
    if (record.trial) { // the user goes on from a version that has not confirmed itself
        record.previous = record.trial->previous;
    }
    record.trial = {request_.version, current, 0};
    if (const int error = writeRecord(root_.get(), record); error != 0) {
        return systemRefusal(error, "writing the record");
    }
    return refusalOf(pointCurrentTo(root_.get(), request_.version), "switching to the new version");
}

} // namespace updates
