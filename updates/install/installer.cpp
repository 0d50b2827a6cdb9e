#include "platform/updates/install/installer.hpp"

#include "platform/updates/feed/signature.hpp"
#include "platform/updates/feed/version_order.hpp"
#include "platform/updates/install/installation_record.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <compare>
#include <system_error>
#include <utility>

namespace platform {
namespace {

constexpr const char* treeName = "tree";         // in staging: the new version
constexpr const char* replacedName = "replaced"; // in staging: what was in its place

InstallRefused refused(InstallFault fault, std::string detail = {}) {
    return {fault, std::move(detail)};
}

InstallRefused systemRefusal(int error, const std::string& doing) {
    const std::string detail = doing + ": " + std::generic_category().message(error);
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return refused(InstallFault::noSpace, detail);
    case EACCES:
    case EPERM:
        return refused(InstallFault::noPermission, detail);
    case EROFS:
        return refused(InstallFault::readOnly, detail);
    default:
        return refused(InstallFault::inputOutput, detail);
    }
}

InstallRefused archiveRefusal(const ArchiveFailure& failure) {
    switch (failure.fault) {
    case ArchiveFault::unreadable:
        return refused(InstallFault::archiveUnreadable, failure.detail);
    case ArchiveFault::unsafe:
        return refused(InstallFault::archiveUnsafe, failure.detail);
    case ArchiveFault::tooLarge:
        return refused(InstallFault::archiveTooLarge, failure.detail);
    case ArchiveFault::cancelled:
        return refused(InstallFault::inputOutput, failure.detail);
    case ArchiveFault::system:
        break;
    }
    return systemRefusal(failure.systemError, failure.detail);
}

} // namespace

Installer::Installer(UpdateTrust trust, InstallRequest request)
    : trust_(std::move(trust)), request_(std::move(request)) {}

Installer::~Installer() {
    if (isStaging_) {
        std::error_code error; // what stays is removed by the next start, or the next update
        std::filesystem::remove_all(request_.root / stagingName, error);
    }
}

std::optional<InstallRefused> Installer::stage(std::span<const std::byte> archive,
                                               const ArchiveProgress& progress) {
    MaybeRefused refusal = open();
    refusal = refusal ? refusal : verify(archive);
    refusal = refusal ? refusal : checkVersion();
    refusal = refusal ? refusal : makeStaging();
    if (refusal) {
        return refusal;
    }
    const Descriptor tree = openFolder(staging_.get(), treeName);
    if (!tree) {
        return systemRefusal(errno, "opening the staging folder");
    }
    const UnpackResult unpacked = unpackArchive(archive, tree.get(), progress);
    if (const auto* const failure = std::get_if<ArchiveFailure>(&unpacked)) {
        wasCancelled_ = failure->fault == ArchiveFault::cancelled;
        return archiveRefusal(*failure);
    }
    if (auto other = checkManifest(std::get<UnpackedArchive>(unpacked).manifest)) {
        return other;
    }
    struct stat program {};
    if (fstatat(tree.get(), programPath, &program, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(program.st_mode) || (program.st_mode & S_IXUSR) == 0) {
        return refused(InstallFault::archiveUnsafe, "no program in it");
    }
    // One flush for all files and folders: one for each would take many times as long.
    if (syncfs(tree.get()) != 0) {
        return systemRefusal(errno, "flushing");
    }
    return {};
}

Installer::MaybeRefused Installer::verify(std::span<const std::byte> archive) const {
    if (archive.size() != request_.length) {
        return refused(InstallFault::lengthDiffers, std::to_string(archive.size()) +
                                                        " bytes, not " +
                                                        std::to_string(request_.length));
    }
    const auto fault = verifySignature(archive, request_.signature, trust_.publicKey);
    if (!fault) {
        return {};
    }
    switch (*fault) {
    case SignatureFault::missing:
        return refused(InstallFault::signatureMissing);
    case SignatureFault::malformed:
        return refused(InstallFault::signatureMalformed);
    case SignatureFault::badKey:
        return refused(InstallFault::cannotUpdate, "built with something that is no key");
    case SignatureFault::wrong:
        break;
    }
    return refused(InstallFault::signatureWrong);
}

Installer::MaybeRefused Installer::open() {
    if (trust_.publicKey.empty()) {
        return refused(InstallFault::cannotUpdate, "built without a key");
    }
    root_ = openFolder(request_.root);
    versions_ = root_ ? openFolder(root_.get(), versionsName) : Descriptor();
    if (!versions_) {
        return systemRefusal(errno, "opening the installation");
    }
    if (currentVersion(root_.get()).empty()) {
        return refused(InstallFault::cannotUpdate, "no installation that updates itself");
    }
    // A moment's patience: another copy may just be tidying up.
    const int error = lockFolder(root_.get(), Sharing::exclusive, 10);
    if (error == EWOULDBLOCK) {
        return refused(InstallFault::busy);
    }
    return error == 0 ? MaybeRefused() : systemRefusal(error, "locking the installation");
}

Installer::MaybeRefused Installer::checkVersion() const {
    const std::string& version = request_.version;
    if (!isVersion(version)) {
        return refused(InstallFault::otherVersion, "not a version");
    }
    const std::string current = currentVersion(root_.get());
    if (version == current) {
        return refused(InstallFault::alreadyInstalled, current);
    }
    const InstallationRecord record = readRecord(root_.get(), current);
    // The highest one may be installed again: it may have been taken back after failing.
    if (std::is_lteq(compareVersions(version, current)) ||
        std::is_lteq(compareVersions(version, request_.installed)) ||
        std::is_lt(compareVersions(version, record.highest))) {
        return refused(InstallFault::notNewer, version);
    }
    return {};
}

Installer::MaybeRefused Installer::makeStaging() {
    std::error_code error;
    std::filesystem::remove_all(request_.root / stagingName, error);
    if (error) {
        return systemRefusal(error.value(), "removing what an earlier update left");
    }
    isStaging_ = true;
    if (mkdirat(root_.get(), stagingName, 0755) != 0) {
        return systemRefusal(errno, "making the staging folder");
    }
    staging_ = openFolder(root_.get(), stagingName);
    if (!staging_ || mkdirat(staging_.get(), treeName, 0755) != 0) {
        return systemRefusal(errno, "making the staging folder");
    }
    return {};
}

Installer::MaybeRefused Installer::checkManifest(const ArchiveManifest& manifest) const {
    if (manifest.product != trust_.product || manifest.identifier != trust_.identifier) {
        return refused(InstallFault::otherProduct, manifest.product + ' ' + manifest.identifier);
    }
    if (manifest.platform != trust_.platform) {
        return refused(InstallFault::otherPlatform, manifest.platform);
    }
    if (manifest.version != request_.version) {
        return refused(InstallFault::otherVersion, manifest.version);
    }
    return {};
}

std::optional<InstallRefused> Installer::install() {
    const RecordLock lock(root_.get(), RecordLock::Folder::make);
    if (!lock.holds()) {
        return lock.error() == EWOULDBLOCK ? refused(InstallFault::busy)
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
        // Nothing refers to it: back with it, to be removed with the rest.
        renameat(versions_.get(), request_.version.c_str(), staging_.get(), treeName);
    }
    return refusal;
}

/// Moves the new version among the others, where nothing refers to it yet.
Installer::MaybeRefused Installer::moveIntoPlace() {
    const std::string& version = request_.version;
    if (const Descriptor present = openFolder(versions_.get(), version)) {
        // An update that was cut off before it was current, or a version that was taken back.
        if (lockFolder(present.get(), Sharing::exclusive) != 0) {
            return refused(InstallFault::busy, "this version is running");
        }
        if (renameat(versions_.get(), version.c_str(), staging_.get(), replacedName) != 0) {
            return systemRefusal(errno, "clearing the version's place");
        }
    }
    if (renameat(staging_.get(), treeName, versions_.get(), version.c_str()) != 0) {
        return systemRefusal(errno, "moving the version into its place");
    }
    if (fsync(versions_.get()) != 0 || fsync(staging_.get()) != 0) {
        const auto refusal = systemRefusal(errno, "flushing the folder of versions");
        renameat(versions_.get(), version.c_str(), staging_.get(), treeName);
        return refusal;
    }
    return {};
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
    if (const int error = pointCurrentTo(root_.get(), request_.version); error != 0) {
        return systemRefusal(error, "switching to the new version");
    }
    return {};
}

} // namespace platform
