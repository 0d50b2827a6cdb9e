// Whatever a feed says, nothing is offered that a rule written down here by hand forbids. The first
// byte tells what the rest is: "g" makes a feed from a table of values whose meaning is known, "v"
// is three versions to put in order, and anything else is a feed as it comes.
#include "updates/feed/publication_date.hpp"
#include "updates/feed/update_choice.hpp"
#include "updates/feed/version_order.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using updates::Asking;
using updates::chooseUpdate;
using updates::compareVersions;

void require(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "broken rule: %s\n", what);
        std::abort();
    }
}

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

#define SIGNATURE_HEAD "AAECAwQFBgcICQoLDA0ODxAREhMUFRYXGBkaGxwdHh8gISIjJCUmJygpKissLS4v"
constexpr const char* goodSignature = SIGNATURE_HEAD "MDEyMzQ1Njc4OTo7PD0+Pw==";
constexpr std::int64_t now = 1741080600; // seconds since 1970

updates::UpdateHost makeHost() {
    updates::UpdateHost host;
    host.installedVersion = "1.4";
    host.highestInstalledVersion = "1.5";
    host.skippedVersion = "1.10";
    host.skippedSignature = goodSignature;
    host.systemVersion = "12.5";
    host.platform = "linux-x86_64";
    host.channels = {"beta"};
    host.phaseGroup = 2;
    host.now = std::chrono::system_clock::time_point(std::chrono::seconds(now));
    return host;
}

/// A text of a feed and whether an item that has it may be offered.
struct Choice {
    const char* text;
    bool isFine = true;
};

// Versions with their place in the order.
struct VersionChoice {
    const char* text;
    int rank; // 0 for what is no version
};
constexpr VersionChoice versions[] = {{"", 0},
                                      {"../2", 0},
                                      {"9/x", 0},
                                      {"1.3", 1},
                                      {"1.4b9", 2},
                                      {"1.4", 3},
                                      {"1.4.0", 3},
                                      {"1.4.1", 4},
                                      {"1.5rc1", 4},
                                      {"1.5", 5},
                                      {"1.5.0", 5},
                                      {"1.9", 6},
                                      {"1.10-b1", 7},
                                      {"1.10", 8},
                                      {"1.10.0", 8},
                                      {"1.10.1-1", 9},
                                      {"1.10.1b", 10},
                                      {"1.10.1b2", 11},
                                      {"1.10.1b10", 12},
                                      {"1.11", 13},
                                      {"2", 14},
                                      {"2.0.0", 14},
                                      {"99999999999999999999", 15}};
constexpr int installedRank = 3;
constexpr int highestInstalledRank = 5;

constexpr Choice urls[] = {{"https://a.example/1"},       {"HTTPS://b.example/2"},
                           {"http://a.example/1", false}, {"file:///tmp/1", false},
                           {"https://", false},           {"https://u:p@a.example/1", false},
                           {"//a.example/1", false},      {"", false}};
constexpr Choice signatures[] = {{goodSignature},
                                 {SIGNATURE_HEAD "MDEyMzQ1Njc4OTo7PD0+Pw=", false},
                                 {SIGNATURE_HEAD "MDEyMzQ1Njc4OTo7PD0+Px==", false},
                                 {SIGNATURE_HEAD "MDEyMzQ1Njc4OTo7PD0+P===", false},
                                 {SIGNATURE_HEAD, false},
                                 {"", false}};
constexpr Choice lengths[] = {
    {"1"},       {"268435456"},        {"0", false},   {"-5", false},
    {"", false}, {"268435457", false}, {"ten", false}, {"18446744073709551617", false}};
constexpr Choice systems[] = {{"linux"},        {""},
                              {"linux-x86_64"}, {"linux-aarch64", false},
                              {"macos", false}, {"windows-x86_64", false}};
constexpr Choice channels[] = {{""}, {"beta"}, {"nightly", false}, {"bet", false}};
constexpr Choice minimums[] = {{""}, {"12.5"}, {"9.99"}, {"12.10", false}, {"13", false}};

/// Hands out choices, one for each byte.
class Draw {
  public:
    explicit Draw(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] bool isOver() const { return rest_.empty(); }

    std::size_t below(std::size_t limit) {
        if (rest_.empty()) {
            return 0;
        }
        const auto value = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return value % limit;
    }

    template<class Entry, std::size_t Count>
    const Entry& from(const Entry (&entries)[Count]) {
        return entries[below(Count)];
    }

  private:
    std::string_view rest_;
};

struct MadeItem {
    std::string text;
    int rank = 0;
    bool isFineForUser = true;
    bool isFineForSchedule = true;
};

std::string element(const std::string& name, const std::string& text) {
    return text.empty() ? std::string() : '<' + name + '>' + text + "</" + name + '>';
}

MadeItem makeItem(Draw& draw, int lowestRank) {
    MadeItem made;
    const VersionChoice& version = draw.from(versions);
    const Choice& url = draw.from(urls);
    const Choice& signature = draw.from(signatures);
    const Choice& length = draw.from(lengths);
    const Choice& system = draw.from(systems);
    const Choice& channel = draw.from(channels);
    const Choice& minimum = draw.from(minimums);
    const bool isCritical = draw.below(4) == 0;
    const bool isPhased = draw.below(3) == 0;
    // One day and a half ago the second group had its turn already, half a day ago it had not.
    const bool isEarly = draw.below(2) == 0;
    const bool isAttribute = draw.below(2) == 0;
    const std::size_t nonsense = draw.below(6);

    made.rank = version.rank;
    made.isFineForUser = version.rank >= lowestRank && url.isFine && signature.isFine &&
                         length.isFine && system.isFine && channel.isFine && minimum.isFine &&
                         nonsense != 1;
    made.isFineForSchedule =
        made.isFineForUser &&
        (isCritical || (std::string_view(version.text) != "1.10" && (!isPhased || !isEarly)));

    const auto published = std::chrono::sys_seconds(std::chrono::seconds(now)) -
                           (isEarly ? std::chrono::hours(12) : std::chrono::hours(48));
    made.text =
        "<item>" + element("title", version.text) +
        element("pubDate", updates::publicationDate(published)) +
        element("sparkle:channel", channel.text) +
        element("sparkle:minimumSystemVersion", minimum.text) +
        (isAttribute ? std::string() : element("sparkle:version", version.text)) +
        (isPhased ? element("sparkle:phasedRolloutInterval", "86400") : std::string()) +
        (isCritical ? "<sparkle:criticalUpdate/>" : "") +
        (nonsense == 1   ? "<sparkle:version>0.1</sparkle:version><sparkle:version>9"
                           "</sparkle:version>"
         : nonsense == 2 ? "<more><sparkle:version>9</sparkle:version></more>"
         : nonsense == 3 ? "<description><![CDATA[<enclosure url=\"x\"/>]]></description>"
                         : "") +
        "<enclosure url=\"" + url.text + "\" length=\"" + length.text +
        "\" sparkle:edSignature=\"" + signature.text + "\" sparkle:os=\"" + system.text +
        (isAttribute ? std::string("\" sparkle:version=\"") + version.text : std::string()) +
        "\"/></item>";
    return made;
}

void checkMadeFeed(std::string_view bytes) {
    Draw draw(bytes);
    updates::UpdateHost host = makeHost();
    int lowestRank = highestInstalledRank;
    if (draw.below(2) == 0) {
        host.highestInstalledVersion.clear();
        lowestRank = installedRank + 1;
    }
    std::string document = "<rss xmlns:sparkle=\"u\"><channel>";
    int bestForUser = 0;
    int bestForSchedule = 0;
    for (int count = 0; count < 40 && !draw.isOver(); ++count) {
        const MadeItem item = makeItem(draw, lowestRank);
        document += item.text;
        bestForUser = std::max(bestForUser, item.isFineForUser ? item.rank : 0);
        bestForSchedule = std::max(bestForSchedule, item.isFineForSchedule ? item.rank : 0);
    }
    document += "</channel></rss>";
    const auto read = updates::readAppcast(bytesOf(document));
    const auto* const appcast = std::get_if<updates::Appcast>(&read);
    require(appcast != nullptr, "a good feed is read");
    for (const Asking asking : {Asking::user, Asking::schedule}) {
        const int best = asking == Asking::user ? bestForUser : bestForSchedule;
        const auto choice = chooseUpdate(*appcast, host, asking);
        const auto* const chosen = std::get_if<updates::AppcastItem>(&choice);
        require((chosen != nullptr) == (best > 0),
                "there is an offer exactly when there may be one");
        if (chosen != nullptr) {
            const auto* const version =
                std::ranges::find(versions, chosen->version, &VersionChoice::text);
            require(version != std::end(versions) && version->rank == best, "the best is offered");
        }
    }
}

/// Whether the rules that can be told from an item's text allow it.
void requireAllowed(const updates::AppcastItem& item) {
    const auto isOneOf = [](const std::string& text, std::initializer_list<const char*> allowed) {
        return std::ranges::count(allowed, text) > 0;
    };
    std::string scheme = item.enclosure.url.substr(0, 8);
    for (char& c : scheme) {
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    }
    require(scheme == "https://" && item.enclosure.url.size() > 8, "https only");
    require(item.enclosure.edSignature.size() == 88 &&
                item.enclosure.edSignature.find_first_not_of(
                    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=") ==
                    std::string::npos,
            "signed only");
    require(item.enclosure.length > 0 && item.enclosure.length <= 268435456, "of a sane length");
    require(isOneOf(item.enclosure.os, {"", "linux", "linux-x86_64"}), "for this system");
    require(isOneOf(item.channel, {"", "beta"}), "from a channel that is wanted");
    require(!item.version.empty() && item.version.find('/') == std::string::npos, "a version");
    // By numbers alone: 0.x to 1.3.x is never an update of 1.4.
    require(!item.version.starts_with("0.") && !item.version.starts_with("1.0.") &&
                !item.version.starts_with("1.2.") && !item.version.starts_with("1.3."),
            "above what is installed");
}

void checkDocument(std::string_view document) {
    const auto read = updates::readAppcast(bytesOf(document));
    const auto* const appcast = std::get_if<updates::Appcast>(&read);
    if (appcast == nullptr) {
        return;
    }
    require(document.size() <= std::size_t{1} << 20, "no more than a mebibyte");
    require(!document.starts_with("<!DOCTYPE"), "no document type");
    for (const Asking asking : {Asking::user, Asking::schedule}) {
        const auto choice = chooseUpdate(*appcast, makeHost(), asking);
        if (const auto* const chosen = std::get_if<updates::AppcastItem>(&choice)) {
            requireAllowed(*chosen);
        }
    }
}

void checkOrder(std::string_view bytes) {
    std::string_view parts[3];
    for (std::string_view& part : parts) {
        part = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(std::min(part.size() + 1, bytes.size()));
    }
    const auto [a, b, c] = parts;
    require(compareVersions(a, a) == 0, "a version equals itself");
    require(compareVersions(a, b) == 0 <=> compareVersions(b, a), "both ways the same");
    if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0) {
        require(compareVersions(a, c) <= 0, "an order");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.starts_with('g')) {
        checkMadeFeed(input.substr(1));
    } else if (input.starts_with('v')) {
        checkOrder(input.substr(1));
    } else {
        checkDocument(input);
    }
    return 0;
}
