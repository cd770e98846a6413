#include "dialogs/diagram/frm_z_graph_2d.h"

#include "dialogs/common/names.h"
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_design.h"
#include "platform/host.h"

namespace zorvant {
namespace {

constexpr int kHelpDiagram = 7003;

} // namespace

frmZGraph2D::frmZGraph2D(Workspace& state) : DiagramDocument(state) {
    helpTopic = kHelpDiagram;
    constexpr const char* kOutputs[] = {
        "... to the C&lipboard", "... Save as &Image File (BMP, WMF, EMF)", "... to the &Printer"};
    for (int i = 1; i <= 3; ++i) {
        mnuBild(i).text = kOutputs[i - 1];
        mnuBild(i).onClick = [this, i] {
            mnuBild_Click(*this, pictures, static_cast<OutputTarget>(i));
        };
    }
    mnuCopyPicture.onClick = [this] { CopyPicture(*this, pictures); };
    WirePicturePanel(*this, pictures);
    cmdSingleCalc.text = "Single &value ...";
    cmdSingleCalc.toolTip = "the concentrations of the model at one x of the diagram";
    cmdSingleCalc.onClick = [this] {
        if (Form* calculator = FindForm(ps.desktop, name::kGraphCalculator))
            ShowForm(ps.desktop, *calculator);
    };
    mnuSaveOC2.onClick = [this] { mnuSaveOC2_Click(ps, *this); };
    mnuLoadOC2.onClick = [this] { mnuLoadOC2_Click(ps, *this); };
    mnuZoom.onClick = [this] { cmdZoom_Click(*this); };
    mnuZoomReset.onClick = [this] { cmdZoomReset_Click(ps, *this); };
    mnuFullSize.onClick = [this] {
        if (onFullSize)
            onFullSize();
    };
    mnuXLog.onClick = [this] { cmdXLog_Click(*this); };
    mnuYLog.onClick = [this] { cmdYLog_Click(*this); };
    mnuHaupt.onClick = [this] {
        if (Form* main = FindForm(ps.desktop, name::kMainWindow))
            ShowForm(ps.desktop, *main);
    };
    mnuManuXY.onClick = [this] {
        if (Form* editor = FindForm(ps.desktop, name::kXYEditor))
            ShowForm(ps.desktop, *editor);
    };
    cmdEscGraph.isCancel = true;
    cmdEscGraph.onClick = [this] { Escape(); };
    onRefresh = [this, texts = onRefresh] {
        texts();
        mnuXLog.checked = GetAxisLog(surface, AxisId::X);
        mnuYLog.checked = GetAxisLog(surface, AxisId::Y);
    };
    BuildMenu();
    Declare();
}

void frmZGraph2D::Escape() {
    if (CancelZoom(*this))
        return;
    for (Frame* panel : {&fraTabs, &fraKurven, &fraPunkte, &fraSchrift, &fraCoordInput, &fraPrintIt,
                         &fraResolution}) {
        if (panel->visible) {
            FuPanelsZu(*this);
            return;
        }
    }
    UnloadForm(ps.desktop, *this);
}

void frmZGraph2D::BuildMenu() {
    const auto row = [this](int level, Control& entry, const char* text = "") {
        if (*text != '\0')
            entry.text = text;
        rows_.push_back({level, entry.name.c_str(), ""});
    };
    const auto line = [this](int level) {
        names_.push_back("sepGraph" + std::to_string(names_.size()));
        rows_.push_back({level, names_.back().c_str(), "-"});
    };
    row(1, mnuDesign, "Desi&gn");
    row(2, mnuKurvenDesign, "&Curves ...");
    row(2, mnuPunktDesign, "&Experimental points ...");
    constexpr const char* kTexts[] = {"&Header ...", "&Additional text ...", "&X-axis label ...",
                                      "&Y-axis label ...", "Curve &label and legend ..."};
    for (int i = 1; i <= kCurveTexts; ++i)
        row(2, mnuTextDesign(i), kTexts[i - 1]);
    row(2, mnuDesignMore, "&More settings ...");
    row(1, mnuAdd, "&Add");
    row(2, mnuAddPunkte, "&Experimental points");
    row(2, mnuAddLegend, "&Legend");
    row(2, mnuAddLabels, "La&bels of the curves");
    row(2, mnuAddText, "Additional &text ...");
    line(2);
    row(2, mnuHalbA, "&Half-life of A");
    row(2, mnuHalbB, "Half-li&fe of B");
    line(2);
    row(2, mnuManuXY, "&X-Y editor ...");
    row(1, mnuScale, "&Scale");
    row(2, mnuCoord, "&Coordinates ...");
    row(2, mnuXLog, "&X axis logarithmic");
    row(2, mnuYLog, "&Y axis logarithmic");
    line(2);
    row(2, mnuZoom, "&Zoom\tCtrl++");
    row(2, mnuZoomReset, "Zoom &back\tCtrl+0");
    line(2);
    row(2, mnuFullSize, "&Full size\tF11");
    row(1, mnuDelete, "D&elete");
    row(2, mnuDelKurv, "&Curves");
    for (int i = 0; i <= kCurveSlots; ++i)
        row(3, mnuSubDelKurv(i));
    row(2, mnuDelPoints, "&Experimental points");
    for (int i = 0; i <= kPointSets; ++i)
        row(3, mnuSubDelPoints(i));
    line(2);
    row(2, mnuDelLegend, "&Legend");
    row(2, mnuDelLegendZeile, "A l&ine of the legend ...");
    row(2, mnuDelLabels, "La&bels of the curves");
    row(2, mnuDelHalbAB, "&Marks");
    row(2, mnuDelMarkLabels, "&All labels");
    line(2);
    row(2, mnuDelTotal, "E&verything");
    row(1, mnuOutput, "&Picture");
    row(2, mnuCopyPicture, "&Copy picture\tCtrl+Shift+C");
    for (int i = 1; i <= 3; ++i)
        row(2, mnuBild(i));
    line(2);
    row(2, mnuSaveOC2, "&Save this diagram design ...");
    row(2, mnuLoadOC2, "L&oad a saved pattern ...");
    row(1, mnuHaupt, "to &Main Menu");
    menu = rows_;
}

} // namespace zorvant
