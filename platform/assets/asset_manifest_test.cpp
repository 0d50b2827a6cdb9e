#include "platform/assets/asset_manifest.hpp"

#include <gmock/gmock.h>

namespace platform {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(AssetManifest, ReadsWhatTheBakerWrites) {
    const auto manifest = AssetManifest::parse(R"({
        "later": 1,
        "images": {"a/b": {"size": [20, 24], "capInsets": [1, 2, 3, 4], "resizing": "tile",
                           "template": true, "variants": {"1": "I/a.png", "3": "I/a@3x.png"}},
                   "plain": {"size": [0.5, 4096], "variants": {"2": "p"}}},
        "colors": {"c": {"space": "display-p3", "components": [0, 0.5, 1, 1]},
                   "d": {"components": [0, 0, 0, 0]}},
        "fonts": ["F/r.otf"],
        "faces": {"F-L": {"family": "F", "style": "L", "weight": 300}, "G": {"family": "G"}}})");
    ASSERT_EQ(manifest.images.size(), 2U);
    const ImageEntry& image = manifest.images.find("a/b")->second;
    EXPECT_EQ(image.size, (core::Size{20, 24}));
    EXPECT_EQ(image.capInsets, (core::EdgeInsets{1, 2, 3, 4}));
    EXPECT_EQ(image.resizing, ImageResizing::tile);
    EXPECT_TRUE(image.isTemplate);
    EXPECT_THAT(image.variants, ElementsAre(Pair(1, "I/a.png"), Pair(3, "I/a@3x.png")));
    const ImageEntry& plain = manifest.images.find("plain")->second;
    EXPECT_EQ(plain.resizing, ImageResizing::none);
    EXPECT_FALSE(plain.isTemplate);
    ASSERT_EQ(manifest.colors.size(), 2U);
    EXPECT_EQ(manifest.colors.find("c")->second.encoding, ColorEncoding::displayP3);
    EXPECT_THAT(manifest.colors.find("c")->second.components, ElementsAre(0, 0.5, 1, 1));
    EXPECT_EQ(manifest.colors.find("d")->second.encoding, ColorEncoding::sRGB);
    EXPECT_THAT(manifest.fonts, ElementsAre("F/r.otf"));
    EXPECT_EQ(manifest.faces.find("F-L")->second.weight, 300);
    EXPECT_EQ(manifest.faces.find("G")->second.weight, 400);
}

TEST(AssetManifest, LeavesOutNonsenseAndKeepsTheRest) {
    const auto parse = [](const std::string& section, const std::string& entry) {
        const std::string list =
            section == "fonts" ? "[" + entry + ", \"good\"]" : "{\"bad\": " + entry + R"(, "good":
            {"size": [1, 1], "variants": {"1": "g"}, "components": [0, 0, 0, 1], "family": "g"}})";
        return AssetManifest::parse("{\"" + section + "\": " + list + "}");
    };
    for (const std::string entry :
         {"1",
          "null",
          "[]",
          "{}",
          R"({"size": [1, 1]})",
          R"({"size": [1, 1], "variants": {}})",
          R"({"size": [0, 1], "variants": {"1": "f"}})",
          R"({"size": [1, -1], "variants": {"1": "f"}})",
          R"({"size": [1, 5000], "variants": {"1": "f"}})",
          R"({"size": ["1", 1], "variants": {"1": "f"}})",
          R"({"size": [1, 1, 1], "variants": {"1": "f"}})",
          R"({"size": [1, 1], "variants": ["f"]})",
          R"({"size": [1, 1], "variants": {"1": 5}})",
          R"({"size": [1, 1], "variants": {"0": "f", "9": "f", "1x": "f", "-1": "f", "": "f"}})",
          R"({"size": [1, 1], "variants": {"1": "/etc/f"}})",
          R"({"size": [1, 1], "variants": {"1": "a/../../f"}})",
          R"({"size": [1, 1], "variants": {"1": ":/f"}})",
          R"({"size": [1, 1], "variants": {"1": "a\\f"}})",
          R"({"size": [1, 1], "variants": {"1": "f\u0000.png"}})",
          R"({"size": [1, 1], "variants": {"1": ""}})",
          R"({"size": [1, 1], "resizing": "shrink", "variants": {"1": "f"}})",
          R"({"size": [1, 1], "resizing": 1, "variants": {"1": "f"}})",
          R"({"size": [2, 2], "capInsets": [1, 0, 2, 0], "variants": {"1": "f"}})",
          R"({"size": [2, 2], "capInsets": [0, 3, 0, 0], "variants": {"1": "f"}})",
          R"({"size": [2, 2], "capInsets": [-1, 0, 0, 0], "variants": {"1": "f"}})",
          R"({"size": [2, 2], "capInsets": 1, "variants": {"1": "f"}})"}) {
        EXPECT_THAT(parse("images", entry).images, ElementsAre(Pair("good", testing::_))) << entry;
    }
    for (const std::string entry :
         {R"("red")", "{}", R"({"components": [0, 0, 0]})", R"({"components": [0, 0, 0, 1.5]})",
          R"({"components": [0, 0, -0.1, 1]})", R"({"components": [0, 0, null, 1]})",
          R"({"space": "cmyk", "components": [0, 0, 0, 1]})",
          R"({"space": 3, "components": [0, 0, 0, 1]})"}) {
        EXPECT_THAT(parse("colors", entry).colors, ElementsAre(Pair("good", testing::_))) << entry;
    }
    for (const std::string entry :
         {"{}", R"({"family": ""})", R"({"family": 1})", R"({"family": "f", "style": []})",
          R"({"family": "f", "weight": 0})", R"({"family": "f", "weight": 1001})",
          R"({"family": "f", "weight": 4.5})", R"({"family": "f", "weight": 18446744073709551615})",
          R"({"family": "f", "weight": 4294967696})"}) {
        EXPECT_THAT(parse("faces", entry).faces, ElementsAre(Pair("good", testing::_))) << entry;
    }
    for (const std::string entry :
         {"1", "null", "[]", R"("")", R"("/f")", R"("../f")", R"("C:f")"}) {
        EXPECT_THAT(parse("fonts", entry).fonts, ElementsAre("good")) << entry;
    }
}

TEST(AssetManifest, IsEmptyWhenTheTextIsNoObject) {
    const std::string deep(200000, '[');
    for (const std::string& text :
         {std::string(), std::string("null"), std::string("[]"), std::string("{"), deep,
          std::string("{\"images\": 1e999}"), std::string("{\"fonts\": [\"\xff\"]}"),
          "{\"colors\":" + deep, std::string(R"({"images": [], "fonts": {}, "faces": 1})")}) {
        const auto manifest = AssetManifest::parse(text);
        EXPECT_TRUE(manifest.images.empty() && manifest.colors.empty() && manifest.fonts.empty() &&
                    manifest.faces.empty())
            << text.substr(0, 40);
    }
}

} // namespace
} // namespace platform
