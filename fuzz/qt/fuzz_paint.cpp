// Any design that can be read is painted in each format of pictures; a vector picture as XML is
// XML.
#include "diagrams/design_file.h"
#include "fuzz/require.h"
#include "platform/files.h"
#include "shell/qt/plot_picture.h"

#include <QApplication>
#include <QXmlStreamReader>

#include <cstdint>

using namespace zorvant;

namespace {

/// More only takes longer.
constexpr std::size_t kMostPoints = 5000;

void StartToolkit() {
    static int count = 1;
    static char name[] = "fuzz_paint";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(count, arguments);
}

bool IsXml(const std::string& text) {
    QXmlStreamReader reader(QByteArray::fromStdString(text));
    bool scripts = false;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement)
            scripts = scripts || reader.name() == QLatin1String("script");
    return !reader.hasError() && !scripts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PlotSurface surface;
    try {
        static_cast<PlotContents&>(surface) =
            ParseDesign(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const FormatError&) {
        return 0;
    }
    for (const auto& group : surface.series)
        for (const PlotSeries& series : group)
            if (series.x.size() > kMostPoints)
                return 0;
    StartToolkit();
    const PlotContents before = surface;
    for (const char* ending : {".png", ".svg", ".pdf", ".bmp", ".wmf", ".emf"}) {
        try {
            const std::string picture = PictureBytes(surface, ending, {300, 200});
            Require(!picture.empty(), "a picture");
            if (ending == std::string_view(".svg"))
                Require(IsXml(picture), "XML");
        } catch (const FileError&) { // told to the user
        }
    }
    Require(static_cast<const PlotContents&>(surface) == before, "the diagram as it was");
    return 0;
}
