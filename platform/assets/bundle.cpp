#include "platform/assets/bundle.hpp"

#include "core/fatal.hpp"
#include "platform/system/code_location.hpp"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <utility>

namespace platform {
namespace {

/// The directory where the resources of a program or shared library stand: "../Resources" in a
/// plug-in bundle, "../share/NAME" in an installed tree, else beside it.
QDir resourceDirectoryOf(const QString& codeFile) {
    const QFileInfo file(codeFile);
    const QDir directory = file.dir();
    for (const QString& relative :
         {QStringLiteral("../Resources"), QStringLiteral("../share/") + file.completeBaseName()}) {
        const QDir candidate(QDir::cleanPath(directory.filePath(relative)));
        if (candidate.exists()) {
            return candidate;
        }
    }
    return directory;
}

} // namespace

Bundle::Bundle(QDir resourceDirectory)
    : resourceDirectory_(std::move(resourceDirectory)),
      assets_(std::make_unique<AssetCatalog>(resourceDirectory_)) {
    QFile file(path(QStringLiteral("Info.json")));
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonObject entries = QJsonDocument::fromJson(file.readAll()).object();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (entry->isString()) {
                information_.emplace(entry.key(), entry->toString());
            }
        }
    }
}

QString Bundle::information(const QString& key) const {
    const auto found = information_.find(key);
    return found == information_.end() ? QString() : found->second;
}

const Bundle& Bundle::main() {
    static const Bundle bundle(resourceDirectoryOf(QCoreApplication::applicationFilePath()));
    return bundle;
}

std::vector<QDir> moduleBundleCandidates(const void* anchor) {
    std::vector<QDir> candidates{Bundle::main().resourceDirectory()};
    if (const std::string file = codeFileContaining(anchor); !file.empty()) {
        candidates.push_back(resourceDirectoryOf(QFile::decodeName(file.c_str())));
    }
    candidates.emplace_back(QCoreApplication::applicationDirPath());
    return candidates;
}

std::unique_ptr<Bundle> openBundle(const QString& name, const std::vector<QDir>& candidates) {
    for (const QDir& candidate : candidates) {
        const QDir directory(candidate.filePath(name + QStringLiteral(".bundle")));
        if (directory.exists()) {
            return std::make_unique<Bundle>(directory);
        }
    }
    return nullptr;
}

std::unique_ptr<Bundle> findModuleBundle(const char* name, const void* anchor, const char* file,
                                         int line) {
    auto bundle = openBundle(QString::fromUtf8(name), moduleBundleCandidates(anchor));
    if (bundle == nullptr) {
        core::fatal(std::string("unable to find bundle named ") + name, file, line);
    }
    return bundle;
}

} // namespace platform
