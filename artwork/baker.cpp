#include "artwork/bundle_writer.hpp"
#include "artwork/catalogue.hpp"
#include "artwork/contact_sheet.hpp"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <cstdio>

namespace {

int fail(const QString& message) {
    std::fprintf(stderr, "artwork_baker: error: %s\n", qPrintable(message));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    // Fonts are read through the application object; it needs no display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Draws the images of a resource bundle.");
    parser.addHelpOption();
    parser.addOptions({{"bundle", "The bundle to draw.", "name"},
                       {"fonts", "The folder of the made typefaces.", "folder"},
                       {"output", "The folder of the bundle to write.", "folder"},
                       {"sheet", "Writes all images on one sheet instead.", "file"},
                       {"scale", "On the sheet: this scale only.", "scale"},
                       {"ground", "On the sheet: the colour behind.", "name"}});
    parser.process(application);
    if (!parser.isSet("bundle") || !parser.isSet("fonts") ||
        parser.isSet("output") == parser.isSet("sheet")) {
        return fail("--bundle, --fonts and either --output or --sheet are needed");
    }
    const auto bundle = parser.value("bundle");
    const auto fonts = parser.value("fonts");
    const auto drawings = artwork::drawingsOf(bundle, fonts);
    if (parser.isSet("sheet")) {
        artwork::SheetOptions options;
        if (parser.isSet("scale")) {
            options.scales = {parser.value("scale").toInt()};
        }
        if (parser.isSet("ground")) {
            options.ground = parser.value("ground");
        }
        const auto sheet = artwork::contactSheet(drawings, fonts, options);
        return sheet.save(parser.value("sheet")) ? 0 : fail("the sheet cannot be written");
    }
    const auto error = artwork::writeBundle(bundle, drawings, parser.value("output"));
    return error.isEmpty() ? 0 : fail(error);
}
