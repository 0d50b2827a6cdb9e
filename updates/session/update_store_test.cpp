#include "updates/feed/signed_feed.hpp"
#include "updates/session/update_store.hpp"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace updates {
namespace {

using namespace std::chrono_literals;
using Time = UpdateMemory::Time;

const Time today = std::chrono::sys_days(std::chrono::year(2027) / 3 / 1);

TEST(UpdateSchedule, IsOnceADayAndSoonerAfterAFailure) {
    const auto memory = [](std::optional<Time> check, std::optional<Time> tried, int failures) {
        UpdateMemory made;
        made.checksByItself = true;
        made.lastCheck = check;
        made.lastTry = tried;
        made.failures = failures;
        return made;
    };
    constexpr auto years = 24h * 3652;
    const struct {
        const char* what;
        UpdateMemory memory;
        std::optional<Time> due;
    } cases[] = {
        {"never asked", {}, std::nullopt},
        {"never checked", memory({}, {}, 0), today},
        {"checked an hour ago", memory(today - 1h, {}, 0), today + 23h},
        {"checked long ago", memory(today - years, {}, 0), today - years + 24h},
        {"checked in ten years", memory(today + years, {}, 0), today},
        {"failed once", memory(today - 30h, today - 10min, 1), today + 50min},
        {"failed often", memory(today - 300h, today - 10min, 50), today - 10min + 24h},
        {"failed in ten years", memory({}, today + years, 7), today},
        {"failed ten years ago", memory({}, today - years, 7), today},
        {"failed, but checked later", memory(today - 1h, today - 2h, 0), today + 23h},
    };
    for (const auto& [what, remembered, due] : cases) {
        EXPECT_EQ(nextCheck(remembered, today), due) << what;
    }
    UpdateMemory no;
    no.checksByItself = false;
    EXPECT_EQ(nextCheck(no, today), std::nullopt);
}

TEST(UpdateStore, RemembersAndForgetsNonsense) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("new/updates.json");
    UpdateMemory memory;
    memory.checksByItself = false;
    memory.starts = 3;
    memory.lastCheck = today;
    memory.lastTry = today - 1h;
    memory.failures = 2;
    memory.skippedVersion = "1.0 \"ä\"";
    memory.skippedSignature = "abc=";
    memory.feedSerial = largestFeedSerial;
    memory.phaseGroup = 6;
    UpdateStore(path).change([&](UpdateMemory& kept) { kept = memory; });
    EXPECT_EQ(UpdateStore(path).memory(), memory);
    for (const QByteArray text : {"", "{", "[]", "{\"phaseGroup\": 7, \"starts\": -4}",
                                  "{\"lastCheck\": 1e300, \"checksByItself\": 1}"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_EQ(UpdateStore(path).memory(), UpdateMemory()) << text.toStdString();
    }
    UpdateStore nowhere("/proc/nowhere/updates.json");
    nowhere.change([&](UpdateMemory& kept) { kept = memory; }); // fails, and says nothing
    EXPECT_EQ(nowhere.memory(), memory);
}

TEST(UpdateStore, KeepsWhatOtherCopiesOfTheProgramChange) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("updates.json");
    UpdateStore one(path);
    UpdateStore other(path);
    one.change([](UpdateMemory& memory) { memory.checksByItself = true; });
    one.change([](UpdateMemory& memory) { ++memory.starts; });
    EXPECT_EQ(other.refresh().checksByItself, true);
    other.change([](UpdateMemory& memory) { memory.checksByItself = false; });
    other.change([](UpdateMemory& memory) { ++memory.starts; });
    one.change([](UpdateMemory& memory) { memory.lastCheck = today; });
    EXPECT_EQ(one.memory().checksByItself, false);
    EXPECT_EQ(UpdateStore(path).memory(), one.memory());
    EXPECT_EQ(one.memory().starts, 2);

    // What a later version of the program has put there stays.
    const auto write = [&](const QByteArray& text) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    const auto content = [&] {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    write("{\"later\": 7}");
    one.change([](UpdateMemory& memory) { memory.starts = 5; });
    EXPECT_TRUE(content().contains("\"later\": 7"));

    // What could not be written for a while comes on top of what is there by then.
    ASSERT_TRUE(QFile::remove(path));
    const QString blocked = folder.filePath("blocked/updates.json");
    write("a file in place of the folder");
    ASSERT_TRUE(QFile::rename(path, folder.filePath("blocked")));
    {
        UpdateStore late(blocked);
        late.change([](UpdateMemory& memory) { memory.checksByItself = false; });
        EXPECT_EQ(late.refresh().checksByItself, false);
        ASSERT_TRUE(QFile::remove(folder.filePath("blocked")));
        UpdateStore(blocked).change([](UpdateMemory& memory) {
            memory.checksByItself = true;
            memory.starts = 9;
        });
    }
    EXPECT_EQ(UpdateStore(blocked).memory().checksByItself, false);
    EXPECT_EQ(UpdateStore(blocked).memory().starts, 9);
}

} // namespace
} // namespace updates
