#pragma once

#include "platform/system/descriptor.hpp"
#include "platform/updates/archive/unpacker.hpp"
#include "platform/updates/install/install_protocol.hpp"

#include <functional>
#include <optional>
#include <string>

namespace platform {

/// What an update must be signed with and say of itself. Compiled into the helper.
struct UpdateTrust {
    std::string publicKey; ///< Ed25519, base64
    std::string product;
    std::string identifier;
    std::string platform;
};

/// One update of an installation, in two steps: `stage` makes all ready beside the installed
/// versions, `install` puts it in place. When it goes away it removes whatever it has not put in
/// place. Meanwhile no other copy updates. One thread.
class Installer {
  public:
    Installer(UpdateTrust trust, InstallRequest request);
    ~Installer();
    Installer(const Installer&) = delete;
    Installer& operator=(const Installer&) = delete;

    /// Verifies the archive, unpacks exactly these bytes and flushes them to the disk. Nothing when
    /// all is ready; `progress` is as for unpacking. After "cancelled" `wasCancelled` is true.
    [[nodiscard]] std::optional<InstallRefused> stage(std::span<const std::byte> archive,
                                                      const ArchiveProgress& progress = {});
    [[nodiscard]] bool wasCancelled() const { return wasCancelled_; }

    /// Makes the new version the current one, on trial. After `stage`, once.
    [[nodiscard]] std::optional<InstallRefused> install();

  private:
    using MaybeRefused = std::optional<InstallRefused>;
    MaybeRefused open();
    MaybeRefused verify(std::span<const std::byte> archive) const;
    MaybeRefused checkVersion() const;
    MaybeRefused makeStaging();
    MaybeRefused checkManifest(const ArchiveManifest& manifest) const;
    MaybeRefused moveIntoPlace();
    MaybeRefused makeCurrent();

    UpdateTrust trust_;
    InstallRequest request_;
    Descriptor root_; // locked: nobody else updates
    Descriptor versions_;
    Descriptor staging_;
    bool isStaging_ = false; // the staging folder is this one's to remove
    bool wasCancelled_ = false;
};

} // namespace platform
