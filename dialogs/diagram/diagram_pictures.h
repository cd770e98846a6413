// The panel of the diagram window that copies, saves and prints the diagram.
#pragma once

#include "diagrams/picture_output.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// `OutputMode`, by the index of `mnuBild`.
enum class OutputTarget { Clipboard = 1, File = 2, Printer = 3 };

/// The controls inside `fraPrintIt`, and what is chosen with them.
struct PicturePanel {
    explicit PicturePanel(Form& owner) : form(owner) {}

    Form& form;
    OutputTarget OutputMode = OutputTarget::Clipboard;
    PictureFormat ImageFormat = PictureFormat::EnhancedMetafile;
    PaperScaling PrintScaling = PaperScaling::Width;
    std::string pictureDir; ///< where the last picture was saved

    ComboBox cmbGraphFormat{form, "cmbGraphFormat"};
    Label Label33{form, "Label33"}; ///< advice

    // --- size of a picture file
    Frame frPictureSize{form, "frPictureSize", "Size"};
    ComboBox cmbFigure{form, "cmbFigure"};                ///< what the size is made for
    TextField txtPictureWidth{form, "txtPictureWidth"};   ///< cm
    TextField txtPictureHeight{form, "txtPictureHeight"}; ///< cm
    TextField txtPictureDpi{form, "txtPictureDpi"};       ///< dots per inch
    Label lblPictureSize{form, "lblPictureSize"};         ///< what comes of it

    // --- print
    Frame frPrintScaling{form, "frPrintScaling", "Scaling"};
    OptionGroup optSM{form,
                      "optSM",
                      {"A4 Format (Portrait)", "Specification of Height", "Specification of Width"},
                      2};
    Frame frPrintPos{form, "frPrintPos", "Position and size in cm"};
    TextField txtTop_in_cm{form, "txtTop_in_cm"};
    TextField txtLeft_in_cm{form, "txtLeft_in_cm"};
    TextField txtHeight_in_cm{form, "txtHeight_in_cm"};
    TextField txtWidth_in_cm{form, "txtWidth_in_cm"};
    Label lblPrintSize{form, "lblPrintSize"}; ///< what comes of it
    Button cmdPageSetup{form, "cmdPageSetup", "Page setup ..."};
    Button cmdPreview{form, "cmdPreview", "Preview ..."};

    Button cmdPrint{form, "cmdPrint", "Execute"};
    Button cmdPrint_Esc{form, "cmdPrint_Esc", "Cancel"};
};

/// Connects the controls and gives them what they hold when the window opens.
void WirePicturePanel(DiagramDocument& doc, PicturePanel& panel);

/// Opens the panel for one kind of output, unless the user would rather not with a black chart.
void mnuBild_Click(DiagramDocument& doc, PicturePanel& panel, OutputTarget target);
void cmbGraphFormat_Click(PicturePanel& panel);
/// Size of the figure, and of what stands in it.
void cmbFigure_Click(PicturePanel& panel);
/// Of fonts, lines and symbols against those on the screen.
double FigureScale(const PicturePanel& panel);
/// The size in the boxes; nothing while they hold no possible one.
std::optional<PictureSize> FigureSize(const PicturePanel& panel);
void optSM_Click(DiagramDocument& doc, PicturePanel& panel);
/// Does what the panel says; input that is no size is told, and the panel stays open.
void cmdPrint_Click(DiagramDocument& doc, PicturePanel& panel);
void cmdPreview_Click(DiagramDocument& doc, PicturePanel& panel);
/// The picture to the clipboard without the panel, in the form that was chosen last.
void CopyPicture(DiagramDocument& doc, const PicturePanel& panel);

} // namespace zorvant
