#pragma once

#include "updates/install/install_protocol.hpp"
#include "updates/session/update_problem.hpp"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <filesystem>
#include <optional>
#include <string>

namespace platform {
class SealedFile;
}

namespace updates {

/// What is to be installed where.
struct InstallOrder {
    std::filesystem::path helper; ///< the program that does it; empty: this copy has none
    std::filesystem::path root;   ///< of the installation
    std::string signature;
    std::string version;          ///< of the update, as its manifest has to say
    std::string installedVersion; ///< of this copy
};

/// Leads the helper program that verifies, unpacks and installs a downloaded archive. One order per
/// object; when it is destroyed before the update is installed, nothing of it stays. Not on the
/// main thread: the end of the helper is waited for.
class InstallClient final : public QObject {
    Q_OBJECT

  public:
    explicit InstallClient(QObject* parent = nullptr);
    ~InstallClient() override;

    /// Hands `archive`, which is sealed, over; it may be closed afterwards.
    void start(const InstallOrder& order, const platform::SealedFile& archive);
    /// Once it is ready.
    void install();

  signals:
    void unpacking(quint64 done, quint64 total); ///< bytes; 0 of 1 while the signature is verified
    void ready();
    void installed();
    void failed(const updates::UpdateFailure& failure);

  private:
    void hear();
    void hear(const InstallMessage& message);
    void fail(const UpdateFailure& failure);

    QProcess helper_;
    QTimer quiet_;
    bool isOver_ = false;
};

} // namespace updates
