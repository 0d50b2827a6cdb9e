#pragma once

#include "platform/system/files.hpp"
#include "updates/archive/unpacker.hpp"
#include "updates/install/install_protocol.hpp"

#include <functional>
#include <optional>
#include <string>

namespace updates {

/// What an update must be signed with and say of itself. Compiled into the helper.
struct UpdateTrust {
    std::string publicKey; ///< Ed25519, base64
    std::string product;
    std::string name;
    std::string identifier;
    std::string platform;
};

/// One update of an installation, in two steps: `stage` makes all ready beside the installed
/// versions, `install` puts it in place. When it goes away it removes whatever it has not put in
/// place. Meanwhile no other copy updates. Run by root it does, for the whole process, only what
/// the installation's owner may, to whom all that it makes belongs. One thread.
class Installer {
  public:
    Installer(UpdateTrust trust, InstallRequest request);
    ~Installer();
    Installer(const Installer&) = delete;
    Installer& operator=(const Installer&) = delete;

    /// Verifies the archive, unpacks exactly these bytes and flushes them to the disk. Nothing when
    /// all is ready; `progress` is as for unpacking. After that said no `wasCancelled` is true.
    [[nodiscard]] std::optional<Refusal> stage(std::span<const std::byte> archive,
                                               const ArchiveProgress& progress = {});
    [[nodiscard]] bool wasCancelled() const { return wasCancelled_; }

    /// Makes the new version the current one, on trial. After `stage`, once.
    [[nodiscard]] std::optional<Refusal> install();

  private:
    using MaybeRefused = std::optional<Refusal>;
    MaybeRefused open();
    MaybeRefused verify(std::span<const std::byte> archive) const;
    MaybeRefused checkVersion() const;
    MaybeRefused makeStaging();
    MaybeRefused checkManifest(const ArchiveManifest& manifest) const;
    MaybeRefused moveIntoPlace();
    MaybeRefused makeCurrent();
    void moveBack();

    UpdateTrust trust_;
    InstallRequest request_;
    platform::Descriptor root_;
    platform::Descriptor lock_; // nobody else updates
    platform::Descriptor versions_;
    platform::Descriptor staging_;
    bool isStaging_ = false; // the staging folder is this one's to remove
    bool wasCancelled_ = false;
};

} // namespace updates
