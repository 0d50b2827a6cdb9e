#include "updates/feed/update_choice.hpp"

#include "updates/feed/publication_date.hpp"

#include <gmock/gmock.h>

#include <functional>

namespace updates {
namespace {

using Why = NothingSuitable::Why;
using std::chrono::days;

const std::chrono::sys_seconds published = std::chrono::sys_days(std::chrono::year(2025) / 3 / 4);

AppcastItem item(const std::string& version) {
    AppcastItem made;
    made.version = version;
    made.pubDate = publicationDate(published);
    made.enclosure = {"https://a.example/" + version, 1000, "",
                      std::string(86, 'A') + "==", "linux"};
    return made;
}

UpdateHost host() {
    UpdateHost made;
    made.installedVersion = "1.0";
    made.highestInstalledVersion = "1.0";
    made.systemVersion = "12.5-amd64";
    made.platform = "linux-x86_64";
    made.now = published;
    return made;
}

/// The chosen version's address and whether it is critical, or why there is none.
std::string outcome(const std::vector<AppcastItem>& items, const UpdateHost& where, Asking asking) {
    const auto choice = chooseUpdate({.items = items}, where, asking);
    if (const auto* const chosen = std::get_if<AppcastItem>(&choice)) {
        return chosen->enclosure.url.substr(chosen->enclosure.url.rfind('/') + 1) +
               (chosen->isCritical ? "!" : "");
    }
    if (const auto* const none = std::get_if<NothingSuitable>(&choice)) {
        constexpr const char* names[] = {"nothing",   "unsigned",  "insecure",
                                         "no length", "too large", "system",
                                         "lower",     "skipped",   "not yet"};
        return std::string(names[static_cast<int>(none->why)]) + ' ' + none->item.version;
    }
    return "up to date";
}

std::string changed(const std::function<void(AppcastItem&)>& change,
                    const std::vector<AppcastItem>& others = {}) {
    std::vector<AppcastItem> items{item("2.0")};
    change(items.front());
    items.insert(items.end(), others.begin(), others.end());
    return outcome(items, host(), Asking::user);
}

TEST(UpdateChoice, TakesTheHighestAboveTheInstalledOneWhateverTheOrder) {
    EXPECT_EQ(outcome({}, host(), Asking::user), "nothing ");
    EXPECT_EQ(outcome({item("0.9"), item("1.0.0"), item("1.0rc2")}, host(), Asking::user),
              "up to date");
    EXPECT_EQ(outcome({item("1.9"), item("1.10"), item("1.2")}, host(), Asking::user), "1.10");
    EXPECT_EQ(outcome({item("1.1b1"), item("0.1")}, host(), Asking::schedule), "1.1b1");
    UpdateHost rolledBack = host();
    rolledBack.highestInstalledVersion = "1.5";
    EXPECT_EQ(outcome({item("1.4")}, rolledBack, Asking::user), "lower 1.4");
    EXPECT_EQ(outcome({item("1.4"), item("1.5")}, rolledBack, Asking::user), "1.5");
}

TEST(UpdateChoice, PassesOverWhatMustNotBeInstalledAndTakesTheNextBest) {
    const struct {
        std::function<void(AppcastItem&)> change;
        const char* alone;
    } cases[] = {
        {[](AppcastItem& i) { i.enclosure.edSignature.clear(); }, "unsigned 2.0"},
        {[](AppcastItem& i) { i.enclosure.edSignature.pop_back(); }, "unsigned 2.0"},
        {[](AppcastItem& i) { i.enclosure.edSignature[3] = ' '; }, "unsigned 2.0"},
        {[](AppcastItem& i) { i.enclosure.edSignature[85] = 'B'; }, "unsigned 2.0"},
        {[](AppcastItem& i) { i.enclosure.edSignature += "AAAA"; }, "unsigned 2.0"},
        {[](AppcastItem& i) { i.enclosure.url = "http://a.example/2.0"; }, "insecure 2.0"},
        {[](AppcastItem& i) { i.enclosure.url = "larkvox-2.0.tar.zst"; }, "insecure 2.0"},
        {[](AppcastItem& i) { i.enclosure.length = 0; }, "no length 2.0"},
        {[](AppcastItem& i) { i.enclosure.length = largestArchive + 1; }, "too large 2.0"},
        {[](AppcastItem& i) { i.minimumSystemVersion = "12.6"; }, "system 2.0"},
        {[](AppcastItem& i) { i.enclosure.os = "macos"; }, "nothing "},
        {[](AppcastItem& i) { i.enclosure.os = "linux-aarch64"; }, "nothing "},
        {[](AppcastItem& i) { i.channel = "beta"; }, "nothing "},
    };
    for (const auto& [change, alone] : cases) {
        EXPECT_EQ(changed(change), alone);
        EXPECT_EQ(changed(change, {item("1.5"), item("1.4")}), "1.5") << alone;
        const bool isOfOthers = std::string_view(alone) == "nothing ";
        EXPECT_EQ(changed(change, {item("1.0")}), isOfOthers ? "up to date" : alone) << alone;
    }
    EXPECT_EQ(changed([](AppcastItem& i) { i.enclosure.length = largestArchive; }), "2.0");
    EXPECT_EQ(changed([](AppcastItem& i) { i.minimumSystemVersion = "12.5"; }), "2.0");
    UpdateHost beta = host();
    beta.channels = {"nightly", "beta"};
    AppcastItem early = item("2.1");
    early.channel = "beta";
    EXPECT_EQ(outcome({item("2.0"), early}, beta, Asking::user), "2.1");
}

TEST(UpdateChoice, PrefersTheArchiveThatNamesTheSystemMostExactly) {
    AppcastItem any = item("2.0");
    any.enclosure.os.clear();
    any.enclosure.url = "https://a.example/any";
    AppcastItem exact = item("2.0.0");
    exact.enclosure.os = "linux-x86_64";
    exact.enclosure.url = "https://a.example/exact";
    const AppcastItem system = item("2");
    EXPECT_EQ(outcome({any, exact, system}, host(), Asking::user), "exact");
    EXPECT_EQ(outcome({any, system}, host(), Asking::user), "2");
    EXPECT_EQ(outcome({any}, host(), Asking::user), "any");
    UpdateHost other = host();
    for (const char* const platform : {"linux-x86_64v3", "linux-aarch64", "linux"}) {
        other.platform = platform;
        EXPECT_EQ(outcome({exact, any}, other, Asking::user), "any") << platform;
    }
    // As archives made there say it.
    exact.enclosure.os = "linux-aarch64";
    other.platform = "linux-aarch64";
    EXPECT_EQ(outcome({exact, any}, other, Asking::user), "exact");
}

TEST(UpdateChoice, SkipsExactlyOneItemUntilTheUserAsks) {
    const AppcastItem skipped = item("1.5");
    UpdateHost skipping = host();
    skipping.skippedVersion = skipped.version;
    skipping.skippedSignature = skipped.enclosure.edSignature;
    EXPECT_EQ(outcome({skipped}, skipping, Asking::schedule), "skipped 1.5");
    EXPECT_EQ(outcome({skipped}, skipping, Asking::user), "1.5");
    // Another version, even an older one, another archive of this version, and what is critical.
    EXPECT_EQ(outcome({skipped, item("1.4")}, skipping, Asking::schedule), "1.4");
    EXPECT_EQ(outcome({skipped, item("1.6")}, skipping, Asking::schedule), "1.6");
    AppcastItem other = skipped;
    other.enclosure.edSignature[0] = 'B';
    EXPECT_EQ(outcome({other}, skipping, Asking::schedule), "1.5");
    AppcastItem critical = skipped;
    critical.isCritical = true;
    EXPECT_EQ(outcome({critical}, skipping, Asking::schedule), "1.5!");
}

TEST(UpdateChoice, ComesToOneGroupAfterTheOther) {
    AppcastItem phased = item("2.0");
    phased.phasedRolloutInterval = days(1);
    UpdateHost where = host();
    for (unsigned group = 0; group < 9; ++group) {
        const unsigned counted = std::min(group, 6U);
        where.phaseGroup = group;
        where.now = published + days(counted) - std::chrono::seconds(1);
        EXPECT_EQ(outcome({phased}, where, Asking::schedule), "not yet 2.0") << group;
        EXPECT_EQ(outcome({phased, item("1.5")}, where, Asking::schedule), "1.5") << group;
        EXPECT_EQ(outcome({phased}, where, Asking::user), "2.0") << group;
        where.now = published + days(counted);
        EXPECT_EQ(outcome({phased}, where, Asking::schedule), "2.0") << group;
    }
    where.now = published;
    phased.pubDate = "soon";
    EXPECT_EQ(outcome({phased}, where, Asking::schedule), "2.0");
}

TEST(UpdateChoice, SaysWhetherItIsCriticalHere) {
    AppcastItem critical = item("2.0");
    critical.isCritical = true;
    critical.phasedRolloutInterval = days(1);
    UpdateHost where = host();
    where.phaseGroup = 3;
    EXPECT_EQ(outcome({critical}, where, Asking::schedule), "2.0!") << "and waits for nobody";
    critical.criticalBelow = "1.0.1";
    EXPECT_EQ(outcome({critical}, where, Asking::schedule), "2.0!");
    critical.criticalBelow = "1.0";
    EXPECT_EQ(outcome({critical}, where, Asking::user), "2.0");
    EXPECT_EQ(outcome({critical}, where, Asking::schedule), "not yet 2.0");
}

} // namespace
} // namespace updates
