#include "dialogs/diagram/frm_z_graph_2d.h"

#include "dialogs/common/names.h"
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_design.h"
#include "dialogs/diagram/diagram_undo.h"
#include "platform/host.h"

namespace zorvant {
namespace {

constexpr int kHelpDiagram = 7003;

} // namespace

frmZGraph2D::frmZGraph2D(Workspace& state) : DiagramDocument(state) {
    helpTopic = kHelpDiagram;
    WirePictures();
    WireScale();
    WireOtherWindows();
    mnuSaveOC2.onClick = [this] { mnuSaveOC2_Click(ps, *this); };
    mnuLoadOC2.onClick = [this] { mnuLoadOC2_Click(ps, *this); };
    mnuLoadLook.onClick = [this] { mnuLoadLook_Click(ps, *this); };
    mnuUndo.onClick = [this] { mnuUndo_Click(ps, *this); };
    mnuRedo.onClick = [this] { mnuRedo_Click(ps, *this); };
    cmdEscGraph.isCancel = true;
    cmdEscGraph.onClick = [this] { Escape(); };
    BuildMenu();
    Declare();
}

void frmZGraph2D::WirePictures() {
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
}

void frmZGraph2D::WireScale() {
    mnuZoom.onClick = [this] { cmdZoom_Click(*this); };
    mnuZoomReset.onClick = [this] { cmdZoomReset_Click(ps, *this); };
    mnuShowAll.onClick = [this] { cmdShowAll_Click(ps, *this); };
    mnuFullSize.onClick = [this] {
        if (onFullSize)
            onFullSize();
    };
    mnuXLog.onClick = [this] { cmdXLog_Click(*this); };
    mnuYLog.onClick = [this] { cmdYLog_Click(*this); };
    onRefresh = [this, texts = onRefresh] {
        texts();
        mnuUndo.enabled = history.CanUndo();
        mnuRedo.enabled = history.CanRedo();
        mnuXLog.checked = GetAxisLog(surface, AxisId::X);
        mnuYLog.checked = GetAxisLog(surface, AxisId::Y);
    };
}

void frmZGraph2D::WireOtherWindows() {
    const auto show = [this](auto& entry, const char* form) {
        entry.onClick = [this, form] {
            if (Form* other = FindForm(ps.desktop, form))
                ShowForm(ps.desktop, *other);
        };
    };
    cmdSingleCalc.text = "Single &value ...";
    cmdSingleCalc.toolTip = "the concentrations of the model at one x of the diagram";
    show(cmdSingleCalc, name::kGraphCalculator);
    show(mnuHaupt, name::kMainWindow);
    show(mnuManuXY, name::kXYEditor);
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

void frmZGraph2D::Row(int level, Control& entry, const char* text) {
    if (*text != '\0')
        entry.text = text;
    rows_.push_back({level, entry.name.c_str(), ""});
}

void frmZGraph2D::Line() {
    names_.push_back("sepGraph" + std::to_string(names_.size()));
    rows_.push_back({2, names_.back().c_str(), "-"});
}

void frmZGraph2D::BuildMenu() {
    BuildDesignMenu();
    BuildAddMenu();
    BuildScaleMenu();
    BuildDeleteMenu();
    BuildPictureMenu();
    Row(1, mnuHaupt, "to &Main Menu");
    menu = rows_;
}

void frmZGraph2D::BuildDesignMenu() {
    Row(1, mnuDesign, "Desi&gn");
    Row(2, mnuUndo, "&Undo\tCtrl+Z");
    Row(2, mnuRedo, "&Redo\tCtrl+Y");
    Line();
    Row(2, mnuKurvenDesign, "&Curves ...");
    Row(2, mnuPunktDesign, "&Experimental points ...");
    constexpr const char* kTexts[] = {"&Header ...", "&Additional text ...", "&X-axis label ...",
                                      "&Y-axis label ...", "Curve &label and legend ..."};
    for (int i = 1; i <= kCurveTexts; ++i)
        Row(2, mnuTextDesign(i), kTexts[i - 1]);
    Row(2, mnuDesignMore, "&More settings ...");
}

void frmZGraph2D::BuildAddMenu() {
    Row(1, mnuAdd, "&Add");
    Row(2, mnuAddPunkte, "&Experimental points");
    Row(2, mnuAddLegend, "&Legend");
    Row(2, mnuAddLabels, "La&bels of the curves");
    Row(2, mnuAddText, "Additional &text ...");
    Line();
    Row(2, mnuHalbA, "&Half-life of A");
    Row(2, mnuHalbB, "Half-li&fe of B");
    Line();
    Row(2, mnuManuXY, "&X-Y editor ...");
}

void frmZGraph2D::BuildScaleMenu() {
    Row(1, mnuScale, "&Scale");
    Row(2, mnuCoord, "&Coordinates ...");
    Row(2, mnuXLog, "&X axis logarithmic");
    Row(2, mnuYLog, "&Y axis logarithmic");
    Line();
    Row(2, mnuZoom, "&Zoom\tCtrl++");
    Row(2, mnuZoomReset, "Zoom &back\tCtrl+0");
    Row(2, mnuShowAll, "Show &all\tCtrl+9");
    Line();
    Row(2, mnuFullSize, "&Full size\tF11");
}

void frmZGraph2D::BuildDeleteMenu() {
    Row(1, mnuDelete, "D&elete");
    Row(2, mnuDelKurv, "&Curves");
    for (int i = 0; i <= kCurveSlots; ++i)
        Row(3, mnuSubDelKurv(i));
    Row(2, mnuDelPoints, "&Experimental points");
    for (int i = 0; i <= kPointSets; ++i)
        Row(3, mnuSubDelPoints(i));
    Line();
    Row(2, mnuDelLegend, "&Legend");
    Row(2, mnuDelLegendZeile, "A l&ine of the legend ...");
    Row(2, mnuDelLabels, "La&bels of the curves");
    Row(2, mnuDelHalbAB, "&Marks");
    Row(2, mnuDelMarkLabels, "&All labels");
    Line();
    Row(2, mnuDelTotal, "E&verything");
}

void frmZGraph2D::BuildPictureMenu() {
    Row(1, mnuOutput, "&Picture");
    Row(2, mnuCopyPicture, "&Copy picture\tCtrl+Shift+C");
    for (int i = 1; i <= 3; ++i)
        Row(2, mnuBild(i));
    Line();
    Row(2, mnuSaveOC2, "&Save this diagram design ...");
    Row(2, mnuLoadOC2, "L&oad a saved pattern ...");
    Row(2, mnuLoadLook, "Load its loo&k only ...");
}

} // namespace zorvant
