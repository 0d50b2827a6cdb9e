#include "updates/publisher/command_line.hpp"

#include "updates/publisher/failure.hpp"

#include <charconv>
#include <functional>
#include <map>
#include <set>
#include <vector>

namespace updates {
namespace {

[[noreturn]] void misunderstood(const std::string& what) {
    throw Failure(ExitCode::usage, what + " \"larkvox-appcast --help\" shows how it is used.");
}

/// The words behind a command's name: options that have a value, options that have none, and one
/// operand.
class Arguments {
  public:
    Arguments(std::string command, std::span<const char* const> words)
        : command_(std::move(command)), words_(words) {}

    void option(const std::string& name, std::function<void(const std::string&)> take) {
        options_[name] = std::move(take);
    }
    void text(const std::string& name, std::string& value) {
        option(name, [&value](const std::string& word) { value = word; });
    }
    void path(const std::string& name, std::filesystem::path& value) {
        option(name, [&value](const std::string& word) { value = word; });
    }
    void path(const std::string& name, std::optional<std::filesystem::path>& value) {
        option(name, [&value](const std::string& word) { value = word; });
    }
    void flag(const std::string& name, bool& value) { flags_[name] = &value; }
    /// A number of hours or days, up to a year.
    template<class Duration, class Value>
    void duration(const std::string& name, Value& value) {
        option(name, [name, &value](const std::string& word) {
            constexpr auto most = std::chrono::floor<Duration>(std::chrono::days(366)).count();
            int count = 0;
            const char* const end = word.data() + word.size();
            const auto [stop, error] = std::from_chars(word.data(), end, count);
            if (error != std::errc() || stop != end || count < 1 || count > most) {
                misunderstood(name + " takes a number from 1 to " + std::to_string(most) + ".");
            }
            value = Duration(count);
        });
    }

    /// Reads all words and gives the operand; fails unless it and the required options are there.
    std::string read(const char* operandName, std::initializer_list<const char*> required) {
        std::optional<std::string> operand;
        std::set<std::string> seen;
        for (std::size_t i = 0; i < words_.size(); ++i) {
            const std::string word = words_[i];
            if (!word.starts_with('-') || word == "-") {
                if (operand) {
                    misunderstood("\"" + command_ + "\" takes one " + operandName + ", and \"" +
                                  word + "\" is another.");
                }
                operand = word;
                continue;
            }
            if (!seen.insert(word).second) {
                misunderstood(word + " is given twice.");
            }
            if (const auto flag = flags_.find(word); flag != flags_.end()) {
                *flag->second = true;
                continue;
            }
            const auto option = options_.find(word);
            if (option == options_.end()) {
                misunderstood("\"" + command_ + "\" has no option " + word + ".");
            }
            if (++i == words_.size() || words_[i][0] == '\0') {
                misunderstood(word + " needs a value.");
            }
            option->second(words_[i]);
        }
        if (!operand || operand->empty()) {
            misunderstood("\"" + command_ + "\" needs the " + operandName + ".");
        }
        for (const char* const name : required) {
            if (!seen.contains(name)) {
                misunderstood("\"" + command_ + "\" needs " + name + ".");
            }
        }
        return *operand;
    }

  private:
    std::string command_;
    std::span<const char* const> words_;
    std::map<std::string, std::function<void(const std::string&)>> options_;
    std::map<std::string, bool*> flags_;
};

AddCommand readAdd(Arguments arguments) {
    AddCommand add;
    arguments.path("--feed", add.feed);
    arguments.path("--key", add.key);
    arguments.text("--url", add.url);
    arguments.text("--title", add.title);
    arguments.text("--short-version", add.shortVersion);
    arguments.path("--notes", add.notes);
    arguments.text("--notes-link", add.notesLink);
    arguments.text("--minimum-system", add.minimumSystem);
    arguments.text("--channel", add.channel);
    arguments.text("--date", add.date);
    arguments.flag("--critical", add.isCritical);
    arguments.option("--critical-below", [&add](const std::string& version) {
        add.isCritical = true;
        add.criticalBelow = version;
    });
    arguments.duration<std::chrono::hours>("--rollout-hours", add.rolloutInterval);
    arguments.duration<std::chrono::days>("--valid-days", add.valid);
    arguments.text("--new-key", add.newKey);
    add.archive = arguments.read("ARCHIVE", {"--feed", "--key", "--url"});
    return add;
}

} // namespace

Command readCommandLine(std::span<const char* const> arguments) {
    if (arguments.empty()) {
        misunderstood("No command is given.");
    }
    for (const std::string_view word : arguments) {
        if (word == "--help" || word == "-h") {
            return HelpCommand{};
        }
    }
    const std::string name = arguments.front();
    Arguments rest(name, arguments.subspan(1));
    if (name == "help") {
        return HelpCommand{};
    }
    if (name == "keygen") {
        return KeygenCommand{rest.read("KEYFILE", {})};
    }
    if (name == "add") {
        return readAdd(std::move(rest));
    }
    if (name == "sign") {
        SignCommand sign;
        rest.path("--key", sign.key);
        rest.duration<std::chrono::days>("--valid-days", sign.valid);
        sign.feed = rest.read("FEED", {"--key"});
        return sign;
    }
    if (name == "verify") {
        VerifyCommand verify;
        rest.text("--public-key", verify.publicKey);
        rest.path("--archives", verify.archives);
        rest.text("--new-key", verify.newKey);
        verify.feed = rest.read("FEED", {"--public-key"});
        return verify;
    }
    misunderstood("There is no command \"" + name + "\".");
}

const char* helpText() {
    return R"(larkvox-appcast: keeps the update feed of Larkvox.

larkvox-appcast keygen KEYFILE
    Makes a pair of keys: the private one in KEYFILE, which only you can read,
    the public one in KEYFILE.pub. Never overwrites a file.

larkvox-appcast add ARCHIVE --feed FEED --key KEYFILE --url ADDRESS
    Signs and measures the archive and writes its item into the feed, which is
    made when it is not there. Version and system are those that the archive
    itself names. ADDRESS is where people will download it, or, with "/" at
    the end, the folder it will lie in.
    --title TEXT             what the item is called
    --short-version TEXT     what people call the version
    --notes FILE             release notes: a piece of HTML
    --notes-link ADDRESS     release notes on a site
    --minimum-system VERSION the oldest kernel it works on
    --channel NAME           only for those who chose the channel
    --rollout-hours N        each of the seven groups gets it N hours later
    --critical               important for everybody
    --critical-below VERSION important for those with an older version
    --date DATE              as "Tue, 04 Mar 2025 10:30:00 +0000"; now when absent
    --new-key KEY            the archive trusts this public key from now on, in
                             place of the one that signs it
    --valid-days N           people's copies believe the feed so long; 90 when absent
    Then signs the whole feed, into FEED.sig. A feed that the key has not
    signed as it is now is refused.

larkvox-appcast sign FEED --key KEYFILE [--valid-days N]
    Signs the feed as it is: before it expires, or after you changed it by
    hand. It vouches for everything in it.

larkvox-appcast verify FEED --public-key KEY [--archives FOLDER] [--new-key KEY]
    Checks the feed and every archive in it: the feed's signature and expiry,
    length, signature, what the archive says of itself, the order of the
    versions. KEY is the public key or the file that has it. The archives are
    looked for beside the feed, or in FOLDER; nothing is fetched.

Exit codes: 0 all is well, 1 something is not right with feed, archive or key,
2 the command was not understood, 3 a file could not be read or written.
)";
}

} // namespace updates
