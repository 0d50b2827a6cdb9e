#include "core/binding.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace core {
namespace {

struct Preset {
    std::string name;
    int octave = 0;
    friend bool operator==(const Preset&, const Preset&) = default;
};

struct Document {
    Observable<Preset> preset{Preset{"Init", 1}};
};

TEST(Binding, ReadsWritesAndFollowsAPartOfAnObjectThatItKeepsAlive) {
    auto document = std::make_shared<Document>();
    Observable<Preset>& preset = document->preset;
    const Binding binding(std::shared_ptr<Observable<Preset>>(document, &preset));
    document.reset();
    std::vector<std::string> heard;
    auto subscription = binding.observe([&](const Preset& p) { heard.push_back(p.name); });
    binding.set({"Lead", 1});
    preset.set({"Bass", 1}); // whoever sets it
    preset.set({"Bass", 1});
    subscription.cancel();
    binding.set({"Pad", 1});
    EXPECT_EQ(heard, (std::vector<std::string>{"Lead", "Bass"}));
    EXPECT_EQ(binding.get().name, "Pad");
}

TEST(Binding, AFieldChangesAloneAndHearsOnlyOfItself) {
    const auto preset = std::make_shared<Observable<Preset>>(Preset{"Init", 1});
    const Binding octave = Binding(preset).field(&Preset::octave);
    std::vector<int> heard;
    Subscription subscription;
    subscription = octave.observe([&](const int& value) {
        heard.push_back(value);
        if (value == 3) {
            subscription.cancel(); // from its own callback
        }
    });
    preset->set({"Lead", 1});
    octave.set(2);
    octave.set(2);
    EXPECT_EQ(preset->value(), (Preset{"Lead", 2}));
    octave.set(3);
    octave.set(4);
    EXPECT_EQ(heard, (std::vector<int>{2, 3}));
    EXPECT_EQ(octave.get(), 4);
}

TEST(Binding, AConstantStaysWhatItIs) {
    const auto binding = Binding<int>::constant(3);
    binding.set(4);
    EXPECT_EQ(binding.get(), 3);
}

} // namespace
} // namespace core
