#include "updates/publisher/feed_check.hpp"

#include "updates/archive/unpacker.hpp"
#include "updates/feed/publication_date.hpp"
#include "updates/feed/secure_address.hpp"
#include "updates/feed/signature.hpp"
#include "updates/feed/update_choice.hpp"
#include "updates/feed/version_order.hpp"
#include "updates/publisher/failure.hpp"
#include "updates/publisher/files.hpp"

#include <cctype>

namespace updates {
namespace {

using updates::AppcastItem;
using updates::SignatureFault;

constexpr std::string_view hexadecimal = "0123456789ABCDEF";

std::string nameOf(const AppcastItem& item) {
    const std::string& os = item.enclosure.os;
    return "Version " + item.version + (os.empty() ? std::string() : " for " + os) +
           (item.channel.empty() ? std::string() : ", channel " + item.channel);
}

const char* reason(SignatureFault fault) {
    switch (fault) {
    case SignatureFault::missing:
        return "is not signed.";
    case SignatureFault::malformed:
        return "has a signature that is none.";
    case SignatureFault::badKey:
        return "cannot be verified: the public key is none.";
    case SignatureFault::wrong:
        break;
    }
    return "has a signature of another key or of another archive.";
}

/// Collects what is wrong with the items of a feed.
class Check {
  public:
    Check(std::filesystem::path archives, std::string publicKey, std::string newKey)
        : archives_(std::move(archives)),
          publicKey_(std::move(publicKey)),
          newKey_(std::move(newKey)) {}

    void look(const AppcastItem& item) {
        lookAtWords(item);
        lookAtArchive(item);
    }

    /// An updater that comes later must never meet a lower version than one that came before.
    void lookAtOrder(const std::vector<AppcastItem>& items) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            for (std::size_t j = i + 1; j < items.size(); ++j) {
                if (items[i].channel == items[j].channel &&
                    isForSameSystem(items[i].enclosure.os, items[j].enclosure.os)) {
                    comparePair(items[i], items[j]);
                }
            }
        }
    }

    std::vector<std::string> problems;

  private:
    void add(const AppcastItem& item, const std::string& problem) {
        problems.push_back(nameOf(item) + ' ' + problem);
    }

    void lookAtWords(const AppcastItem& item) {
        if (!updates::isSecureAddress(item.enclosure.url)) {
            add(item, "is not at a complete https address: " + item.enclosure.url);
        }
        if (!item.releaseNotesLink.empty() && !updates::isSecureAddress(item.releaseNotesLink)) {
            add(item, "has release notes that are not at a complete https address.");
        }
        if (!updates::parsePublicationDate(item.pubDate)) {
            add(item, "has no date that can be read: \"" + item.pubDate + "\".");
        }
        if (item.enclosure.os.empty()) {
            add(item, "does not say which system it is for.");
        }
    }

    void lookAtArchive(const AppcastItem& item) {
        const auto& enclosure = item.enclosure;
        const std::string name = fileNameIn(enclosure.url);
        if (name.empty()) {
            add(item, "is at an address that ends in no file name.");
            return;
        }
        try {
            auto archive = readCopy(archives_ / name, updates::largestArchive);
            std::error_code error;
            const auto bytes = archive.map(error);
            if (error) {
                throw Failure(ExitCode::inputOutput, name + ": " + error.message());
            }
            // What nobody vouches for is not unpacked.
            if (enclosure.length != bytes.size()) {
                add(item, "is " + std::to_string(bytes.size()) + " bytes long, the feed says " +
                              std::to_string(enclosure.length) + '.');
            } else if (const auto fault =
                           updates::verifySignature(bytes, enclosure.edSignature, publicKey_)) {
                add(item, reason(*fault));
            } else {
                lookInside(item, updates::examineArchive(bytes));
            }
        } catch (const Failure& failure) {
            problems.push_back(nameOf(item) + ": " + failure.what());
        }
    }

    void lookInside(const AppcastItem& item, const updates::UnpackResult& result) {
        if (const auto* const failure = std::get_if<updates::Refusal>(&result)) {
            add(item, "has an archive that updaters refuse: " + failure->detail);
            return;
        }
        const auto& manifest = std::get<updates::UnpackedArchive>(result).manifest;
        if (manifest.version != item.version) {
            add(item, "has an archive with version " + manifest.version + '.');
        }
        if (!item.enclosure.os.empty() && !isForSameSystem(item.enclosure.os, manifest.platform)) {
            add(item, "has an archive for " + manifest.platform + '.');
        }
        if (const auto problem = keyProblem(manifest, publicKey_, newKey_)) {
            add(item, "has an archive that " + *problem);
        }
        if (identifier_.empty()) {
            identifier_ = manifest.identifier;
        } else if (identifier_ != manifest.identifier) {
            add(item, "has an archive of another program than the rest of the feed: " +
                          manifest.identifier);
        }
    }

    void comparePair(const AppcastItem& a, const AppcastItem& b) {
        const auto order = updates::compareVersions(a.version, b.version);
        if (std::is_eq(order)) {
            add(a, "is in the feed twice.");
            return;
        }
        const AppcastItem& lower = std::is_lt(order) ? a : b;
        const AppcastItem& higher = std::is_lt(order) ? b : a;
        const auto lowerDate = updates::parsePublicationDate(lower.pubDate);
        const auto higherDate = updates::parsePublicationDate(higher.pubDate);
        if (lowerDate && higherDate && *lowerDate > *higherDate) {
            add(lower,
                "goes backwards: it is of a later date than version " + higher.version + '.');
        }
    }

    std::filesystem::path archives_;
    std::string publicKey_;
    std::string newKey_;
    std::string identifier_;
};

} // namespace

std::string fileNameIn(std::string_view address) {
    address = address.substr(0, address.find_first_of("?#"));
    // After the host: "https://a.example" names no file.
    const auto host = address.find("://");
    const auto slash = address.rfind('/');
    if (host == std::string_view::npos || slash == std::string_view::npos || slash < host + 3) {
        return {};
    }
    std::string name;
    for (std::size_t i = slash + 1; i < address.size(); ++i) {
        char c = address[i];
        if (c == '%') {
            const auto digit = [&](std::size_t at) {
                return at < address.size()
                           ? hexadecimal.find(static_cast<char>(std::toupper(address[at])))
                           : std::string_view::npos;
            };
            const auto high = digit(i + 1);
            const auto low = digit(i + 2);
            if (high == std::string_view::npos || low == std::string_view::npos) {
                return {};
            }
            c = static_cast<char>(high * 16 + low);
            i += 2;
        }
        if (c == '/' || c == '\0') {
            return {};
        }
        name += c;
    }
    return name == "." || name == ".." ? std::string() : name;
}

std::string addressOf(std::string_view base, const std::string& fileName) {
    std::string address(base);
    if (!address.ends_with('/')) {
        return address;
    }
    for (const char c : fileName) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') ||
                             std::string_view("-._~").find(c) != std::string_view::npos;
        if (isPlain) {
            address += c;
        } else {
            const auto value = static_cast<unsigned char>(c);
            address += '%';
            address += hexadecimal[value / 16];
            address += hexadecimal[value % 16];
        }
    }
    return address;
}

bool isForSameSystem(std::string_view os, std::string_view otherOs) {
    const auto covers = [](std::string_view wide, std::string_view narrow) {
        return wide.empty() || wide == narrow ||
               (narrow.starts_with(wide) && narrow[wide.size()] == '-');
    };
    return covers(os, otherOs) || covers(otherOs, os);
}

std::optional<std::string> keyProblem(const ArchiveManifest& manifest, const std::string& publicKey,
                                      const std::string& newKey) {
    if (manifest.publicKey == publicKey || manifest.publicKey == newKey) {
        return std::nullopt;
    }
    return "trusts another key, " + manifest.publicKey +
           ": copies that install it would refuse every update of yours. If the key is to change, "
           "name that one with --new-key.";
}

std::vector<std::string> problemsOf(const updates::Appcast& appcast,
                                    const std::filesystem::path& archives,
                                    const std::string& publicKey, const std::string& newKey) {
    Check check(archives, publicKey, newKey);
    if (appcast.ignoredItems > 0) {
        check.problems.push_back(
            "Updaters leave out " + std::to_string(appcast.ignoredItems) +
            " of the items: each needs one version and an enclosure with an address.");
    }
    if (appcast.items.empty()) {
        check.problems.emplace_back("There is no version in the feed.");
    }
    for (const AppcastItem& item : appcast.items) {
        check.look(item);
    }
    check.lookAtOrder(appcast.items);
    return check.problems;
}

} // namespace updates
