#include "dialogs/diagram/diagram_pictures.h"

#include "diagrams/figure.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/number_text.h"
#include "platform/paths.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr const char* kRefused = "Execution not possible";
constexpr double kWidestPlace = 100; ///< cm, of a place on paper
constexpr double kPaperSlack = 0.01; ///< cm

struct FormatRow {
    PictureFormat format;
    const char* text;      ///< in the list of files
    const char* filter;    ///< of the file dialog
    const char* extension; ///< upper case
};
constexpr FormatRow kFileFormats[] = {
    {PictureFormat::Bitmap, "Bitmap (.BMP)", "Bitmap file (*.BMP)", ".BMP"},
    {PictureFormat::Metafile, "MetaFile (.WMF)", "Windows MetaFile (*.WMF)", ".WMF"},
    {PictureFormat::EnhancedMetafile, "Enhanced MetaFile (.WMF)", "Windows MetaFile (*.WMF)",
     ".WMF"},
    {PictureFormat::EnhancedFile, "Enhanced MetaFile (.EMF)", "Enhanced MetaFile (*.EMF)", ".EMF"},
    {PictureFormat::StandardMetafile, "Standard-MetaFile (.WMF)", "Windows MetaFile (*.WMF)",
     ".WMF"},
    {PictureFormat::Png, "PNG picture (.PNG)", "PNG picture (*.PNG)", ".PNG"},
    {PictureFormat::Svg, "SVG drawing (.SVG)", "SVG drawing (*.SVG)", ".SVG"},
    {PictureFormat::Pdf, "PDF document (.PDF)", "PDF document (*.PDF)", ".PDF"},
};
constexpr int kFirstFileFormat = 2; ///< of the list when the panel opens

constexpr PictureFormat kClipboardFormats[] = {PictureFormat::Bitmap,
                                               PictureFormat::EnhancedMetafile};

const FormatRow& RowOf(PictureFormat format) {
    for (const FormatRow& row : kFileFormats)
        if (row.format == format)
            return row;
    return kFileFormats[0];
}

// --- numbers of the panel

/// Collects what is wrong with the boxes.
class Boxes {
public:
    double Read(const TextField& box, const char* name, double least, double most,
                const char* unit) {
        const auto number = ParseNumber(CommasToPoints(box.text));
        if (number && *number >= least && *number <= most)
            return *number;
        faults_ += std::string("- ") + name + ": a number from " + SingleText(least) + " to " +
                   SingleText(most) + " " + unit + kCrLf;
        return least;
    }
    void Add(const std::string& fault) { faults_ += "- " + fault + kCrLf; }
    const std::string& faults() const { return faults_; }
    /// Returned: whether something is wrong, after telling it.
    bool Refused() const {
        if (!faults_.empty())
            ShowMessage(faults_, kRefused, Icon::Critical);
        return !faults_.empty();
    }

private:
    std::string faults_;
};

PictureSize ReadSize(const PicturePanel& panel, Boxes& boxes) {
    PictureSize size;
    size.width = boxes.Read(panel.txtPictureWidth, "width of the picture", kSmallestPicture,
                            kLargestPicture, "cm");
    size.height = boxes.Read(panel.txtPictureHeight, "height of the picture", kSmallestPicture,
                             kLargestPicture, "cm");
    if (!IsBitmap(panel.ImageFormat))
        return size;
    size.dotsPerInch = boxes.Read(panel.txtPictureDpi, "resolution", kLeastResolution,
                                  kMostResolution, "dots per inch");
    try {
        CheckPixels(size.width / kCentimetresPerInch * size.dotsPerInch,
                    size.height / kCentimetresPerInch * size.dotsPerInch);
    } catch (const FileError& fault) {
        boxes.Add(fault.what());
    }
    return size;
}

PrintRequest ReadRequest(const PicturePanel& panel, Boxes& boxes) {
    PrintRequest request;
    request.format = panel.ImageFormat;
    request.scaling = panel.PrintScaling;
    const auto place = [&](const TextField& box, const char* name) {
        return boxes.Read(box, name, 0, kWidestPlace, "cm") - kPaperEdge;
    };
    const auto side = [&](const TextField& box, const char* name) {
        return boxes.Read(box, name, kSmallestPicture, kLargestPicture, "cm");
    };
    request.top = place(panel.txtTop_in_cm, "distance from the top");
    request.left = place(panel.txtLeft_in_cm, "distance from the left");
    if (panel.txtHeight_in_cm.enabled)
        request.height = side(panel.txtHeight_in_cm, "height");
    if (panel.txtWidth_in_cm.enabled)
        request.width = side(panel.txtWidth_in_cm, "width");
    const PaperRect rect = PlaceOnPaper(request, 1);
    if (rect.width < kSmallestPicture || rect.height < kSmallestPicture)
        boxes.Add("no room is left between the margins");
    return request;
}

std::string Centimetres(double width, double height) {
    return FormatNumber(width, "0.0#") + " x " + FormatNumber(height, "0.0#") + " cm";
}

void ShowPictureSize(PicturePanel& panel) {
    Boxes boxes;
    const PictureSize size = ReadSize(panel, boxes);
    const auto pixels = [&](double side) {
        return SingleText(
            static_cast<double>(RoundHalfEven(side / kCentimetresPerInch * size.dotsPerInch)));
    };
    panel.lblPictureSize.text = !boxes.faults().empty() ? "not a possible size"
                                : IsBitmap(panel.ImageFormat)
                                    ? pixels(size.width) + " x " + pixels(size.height) + " pixels"
                                    : "drawn to any size without loss";
}

void ShowPrintSize(const DiagramDocument& doc, PicturePanel& panel) {
    Boxes boxes;
    const PaperRect rect = PlaceOnPaper(ReadRequest(panel, boxes), AspectOf(doc.surface));
    panel.lblPrintSize.text = boxes.faults().empty()
                                  ? "on paper: " + Centimetres(rect.width, rect.height)
                                  : "not a possible size";
}

// --- the three outputs

void ToFile(DiagramDocument& doc, PicturePanel& panel, const PictureSize& size) {
    const FormatRow& row = RowOf(panel.ImageFormat);
    const auto choice = host().chooseFile({
        .save = true,
        .title = "Save Image File",
        .directory = panel.pictureDir.empty() ? doc.ps.GraphDir : panel.pictureDir,
        .name = {},
        .extension = row.extension,
        .filters = {{row.filter, std::string("*") + row.extension}},
    });
    if (!choice)
        return;
    const std::string name = UpperCase(FileName(choice->path));
    for (const FormatRow& other : kFileFormats)
        if (EndsWith(name, other.extension) && !EndsWith(name, row.extension)) {
            ShowMessage(std::string("The name ends in ") + other.extension +
                            ", but the format chosen is \"" + row.text + "\"." + kCrLf +
                            "Nothing has been written.",
                        kRefused, Icon::Critical);
            return;
        }
    if (panel.ImageFormat == PictureFormat::EnhancedFile)
        panel.ImageFormat = PictureFormat::EnhancedMetafile; // the name tells the rest
    const WaitScope wait(doc.ps);
    PlotSurface figure = ScaledFigure(doc.surface, FigureScale(panel));
    if (!pictureOutput().drawToFile(figure, choice->path, panel.ImageFormat, size))
        throw FileError("The diagram could not be drawn into this file.");
    panel.pictureDir = DirectoryOf(choice->path);
    doc.StatusBar2.text = "Picture saved: " + choice->path;
}

/// A diagram that reaches beyond the page is printed only when the user wants it so.
bool FitsOrWanted(const DiagramDocument& doc, const PrintRequest& request) {
    if (request.scaling == PaperScaling::Page)
        return true;
    const PaperRect rect = PlaceOnPaper(request, AspectOf(doc.surface));
    const PaperRect paper = pictureOutput().paper();
    if (rect.left + rect.width <= paper.width + kPaperSlack &&
        rect.top + rect.height <= paper.height + kPaperSlack)
        return true;
    return Ask("The diagram reaches beyond the page of " + Centimetres(paper.width, paper.height) +
                   "." + kCrLf + kCrLf + "Do you really want to print it like that?",
               "WARNING", Icon::Warning, Buttons::OkCancel) == Answer::Ok;
}

void Execute(DiagramDocument& doc, PicturePanel& panel, const PictureSize& size,
             const PrintRequest& request) {
    switch (panel.OutputMode) {
    case OutputTarget::Clipboard:
        CopyPicture(doc, panel);
        break;
    case OutputTarget::File:
        ToFile(doc, panel, size);
        break;
    case OutputTarget::Printer:
        pictureOutput().printChart(doc.surface, request);
        break;
    }
}

} // namespace

void WirePicturePanel(DiagramDocument& doc, PicturePanel& panel) {
    panel.txtTop_in_cm.text = " 3";
    panel.txtLeft_in_cm.text = " 3.5";
    panel.txtHeight_in_cm.text = " 10";
    panel.txtWidth_in_cm.text = " 15";
    panel.optSM.selected = 4;
    const PictureSize usual;
    panel.txtPictureWidth.text = GeneralText(usual.width);
    panel.txtPictureHeight.text = GeneralText(usual.height);
    panel.txtPictureDpi.text = GeneralText(usual.dotsPerInch);
    panel.txtPictureDpi.disabledTip = "only bitmaps have a resolution";
    panel.txtHeight_in_cm.disabledTip = "follows from the width and the shape of the diagram";
    panel.txtWidth_in_cm.disabledTip = "follows from the height and the shape of the diagram";
    for (TextField* box : {&panel.txtPictureWidth, &panel.txtPictureHeight, &panel.txtPictureDpi}) {
        box->onKeyPress = [](int& key) { key = FilterNumericKey(key) ? key : 0; };
        box->onChange = [&panel] { ShowPictureSize(panel); };
    }
    for (TextField* box : {&panel.txtTop_in_cm, &panel.txtLeft_in_cm, &panel.txtHeight_in_cm,
                           &panel.txtWidth_in_cm}) {
        box->onKeyPress = [](int& key) { key = FilterNumericKey(key) ? key : 0; };
        box->onChange = [&doc, &panel] { ShowPrintSize(doc, panel); };
    }
    for (const FigurePreset& figure : kFigures)
        panel.cmbFigure.items.emplace_back(figure.name);
    panel.cmbFigure.index = 0;
    panel.cmbFigure.toolTip = "Size of the picture, with fonts, lines and symbols to match";
    panel.cmbFigure.onClick = [&panel] { cmbFigure_Click(panel); };
    panel.cmbGraphFormat.onClick = [&panel] { cmbGraphFormat_Click(panel); };
    panel.optSM.onClick = [&doc, &panel](int) { optSM_Click(doc, panel); };
    panel.cmdPageSetup.onClick = [&doc, &panel] {
        pictureOutput().setUpPage();
        ShowPrintSize(doc, panel);
    };
    panel.cmdPreview.onClick = [&doc, &panel] { cmdPreview_Click(doc, panel); };
    panel.cmdPrint.isDefault = true;
    panel.cmdPrint.onClick = [&doc, &panel] { cmdPrint_Click(doc, panel); };
    panel.cmdPrint_Esc.onClick = [&doc] { FuPanelsZu(doc); };
    optSM_Click(doc, panel);
}

void mnuBild_Click(DiagramDocument& doc, PicturePanel& panel, OutputTarget target) {
    const bool black = !doc.surface.plotArea.transparent && doc.surface.plotArea.back == kBlack;
    if (black && Ask(JoinLines({"You have selected a black chart. ", "",
                                "Do you really want to print it like that?"}),
                     "WARNING", Icon::Warning, Buttons::OkCancel) != Answer::Ok)
        return;
    FuPanelsZu(doc);
    panel.OutputMode = target;
    std::vector<std::string>& formats = panel.cmbGraphFormat.items;
    formats.clear();
    switch (target) {
    case OutputTarget::Clipboard:
        doc.fraPrintIt.text = "... to the Clipboard";
        formats = {"Bitmap Image", "Vector Image"};
        panel.cmbGraphFormat.index = 1;
        panel.Label33.text = "Test wether the vector or the bitmap copy gives the better result "
                             "for your case.";
        break;
    case OutputTarget::File:
        doc.fraPrintIt.text = "Write image file";
        for (const FormatRow& row : kFileFormats)
            formats.emplace_back(row.text);
        panel.cmbGraphFormat.index = kFirstFileFormat;
        panel.Label33.text =
            JoinLines({"for further processing of a diagram (additional text, changing colors, "
                       "etc.) => use the Open-Source progr. Inkscape",
                       " (save as *.EMF => Inkscape => save as *.EMF)"});
        break;
    case OutputTarget::Printer:
        doc.fraPrintIt.text = "Print";
        panel.Label33.text.clear();
        break;
    }
    const bool print = target == OutputTarget::Printer;
    panel.cmbGraphFormat.visible = panel.Label33.visible = !print;
    panel.frPictureSize.visible = target == OutputTarget::File;
    panel.frPrintScaling.visible = panel.frPrintPos.visible = print;
    panel.cmdPageSetup.visible = panel.cmdPreview.visible = print;
    cmbGraphFormat_Click(panel);
    optSM_Click(doc, panel);
    doc.fraPrintIt.visible = true;
    doc.setFocus = print ? static_cast<Control*>(&panel.optSM) : &panel.cmbGraphFormat;
}

void cmbGraphFormat_Click(PicturePanel& panel) {
    const auto index = static_cast<std::size_t>(std::max(0, panel.cmbGraphFormat.index));
    switch (panel.OutputMode) {
    case OutputTarget::Clipboard:
        panel.ImageFormat = kClipboardFormats[std::min(index, std::size(kClipboardFormats) - 1)];
        break;
    case OutputTarget::File:
        panel.ImageFormat = kFileFormats[std::min(index, std::size(kFileFormats) - 1)].format;
        break;
    case OutputTarget::Printer:
        panel.ImageFormat = PictureFormat::Bitmap;
        break;
    }
    panel.txtPictureDpi.enabled = IsBitmap(panel.ImageFormat);
    ShowPictureSize(panel);
}

double FigureScale(const PicturePanel& panel) {
    const int last = static_cast<int>(kFigures.size()) - 1;
    return kFigures[static_cast<std::size_t>(std::clamp(panel.cmbFigure.index, 0, last))].scale;
}

std::optional<PictureSize> FigureSize(const PicturePanel& panel) {
    Boxes boxes;
    const PictureSize size = ReadSize(panel, boxes);
    return boxes.faults().empty() ? std::optional(size) : std::nullopt;
}

void cmbFigure_Click(PicturePanel& panel) {
    const int last = static_cast<int>(kFigures.size()) - 1;
    const FigurePreset& figure =
        kFigures[static_cast<std::size_t>(std::clamp(panel.cmbFigure.index, 0, last))];
    const PictureSize usual;
    panel.txtPictureWidth.text = GeneralText(figure.width > 0 ? figure.width : usual.width);
    panel.txtPictureHeight.text = GeneralText(figure.width > 0 ? figure.height : usual.height);
    ShowPictureSize(panel);
}

void optSM_Click(DiagramDocument& doc, PicturePanel& panel) {
    constexpr PaperScaling kCodes[] = {PaperScaling::Page, PaperScaling::Height,
                                       PaperScaling::Width};
    panel.PrintScaling = kCodes[panel.optSM.selected - panel.optSM.first];
    panel.txtHeight_in_cm.enabled = panel.PrintScaling == PaperScaling::Height;
    panel.txtWidth_in_cm.enabled = panel.PrintScaling == PaperScaling::Width;
    ShowPrintSize(doc, panel);
}

void cmdPrint_Click(DiagramDocument& doc, PicturePanel& panel) {
    Boxes boxes;
    PictureSize size;
    PrintRequest request;
    if (panel.OutputMode == OutputTarget::File)
        size = ReadSize(panel, boxes);
    if (panel.OutputMode == OutputTarget::Printer)
        request = ReadRequest(panel, boxes);
    if (boxes.Refused() ||
        (panel.OutputMode == OutputTarget::Printer && !FitsOrWanted(doc, request)))
        return;
    try {
        Execute(doc, panel, size, request);
    } catch (const FileError& fault) {
        ShowMessage(fault.what(), kRefused, Icon::Critical);
    }
    doc.fraPrintIt.visible = false;
}

void cmdPreview_Click(DiagramDocument& doc, PicturePanel& panel) {
    Boxes boxes;
    const PrintRequest request = ReadRequest(panel, boxes);
    if (!boxes.Refused())
        pictureOutput().previewChart(doc.surface, request);
    ShowPrintSize(doc, panel);
}

void CopyPicture(DiagramDocument& doc, const PicturePanel& panel) {
    const bool bitmap = panel.OutputMode == OutputTarget::Clipboard && IsBitmap(panel.ImageFormat);
    const WaitScope wait(doc.ps);
    if (!pictureOutput().copyToClipboard(doc.surface, bitmap ? PictureFormat::Bitmap
                                                             : PictureFormat::EnhancedMetafile))
        throw FileError("The diagram could not be drawn for the clipboard.");
    doc.StatusBar2.text = "The diagram is on the clipboard.";
}

} // namespace zorvant
