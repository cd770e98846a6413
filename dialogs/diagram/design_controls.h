// The controls of the settings panel of a diagram: axes, grid, legend, labels, colours, frame and
// margins. They show the state of the plot surface; the surface alone keeps it.
#pragma once

#include "platform/controls.h"

namespace zorvant {

/// Pages of the settings panel, by index.
enum class SettingsPage { Coordinates, Grid, Origin, Legend, Labels, Colours, Frame };
inline constexpr int kSettingsPages = 7;

struct DesignControls {
    /// Enters the controls into the form, in the order of the pages.
    explicit DesignControls(Form& owner);
    DesignControls(const DesignControls&) = delete;
    DesignControls& operator=(const DesignControls&) = delete;

    Form& form;
    TabPanel tabSettings;

    // --- zoom
    Button cmdZoom{form, "cmdZoom", "Zoom"};
    Button cmdZoomReset{form, "cmdZoomReset", "Zoom back"};
    Button cmdShowAll{form, "cmdShowAll", "Show all"};
    Label Label46{form, "Label46", "ATTENTION: Zoom resets to default setting"};

    // --- grid
    OptionGroup opt1Gitter{
        form, "opt1Gitter", {"without Grid", "Y-Grid only", "X-Grid only", "Complete grid"}};
    OptionGroup opt2Gitter{form, "opt2Gitter", {"dotted", "solid line"}};
    Button cmdGitterFarbe{form, "cmdGitterFarbe", "Colour ..."};

    // --- origin and numbers
    OptionGroup optStandardOrigin{
        form, "optStandardOrigin", {"autom. in the minima of axes", "manual"}};
    TextField txtXOrigin{form, "txtXOrigin"}; ///< xMin and yMin, the automatic origin
    TextField txtYOrigin{form, "txtYOrigin"};
    Frame fraOrigin{form, "fraOrigin"};
    OptionGroup optXOrigin{form, "optXOrigin", {"in X-minimum", "at X = 0", "in X-maximum"}};
    OptionGroup optYOrigin{form, "optYOrigin", {"in Y-minimum", "at Y = 0", "in Y-maximum"}};
    OptionGroup optXZiffern{
        form, "optXZiffern", {"in the minimum", "on the axis", "in the maximum"}};
    OptionGroup optYZiffern{
        form, "optYZiffern", {"in the minimum", "on the axis", "in the maximum"}};

    // --- legend
    OptionGroup optLegOrient{form, "optLegOrient", {"horizontal", "vertical"}};
    CheckBox chkAutoLegend{form, "chkAutoLegend", "Place automatic"};
    Button cmdLegCorner{form, "cmdLegCorner", "Free corner inside"};
    Slider scrLegH{form, "scrLegH"};
    Slider scrlegV{form, "scrlegV"};
    CheckBox chkLegFrame{form, "chkLegFrame", "Frame of the legend"};
    CheckBox chkLegTransparent{form, "chkLegTransparent", "Transparent ground"};
    Button cmdLegFont{form, "cmdLegFont", "Font ..."};
    Button cmdLegBColor{form, "cmdLegBColor", "Background ..."};
    Button cmdLegFColor{form, "cmdLegFColor", "Text colour ..."};

    // --- labels of all curves
    Button cmdFontLabel{form, "cmdFontLabel", "Font ..."};
    Button cmdLabelFColor{form, "cmdLabelFColor", "Text colour ..."};
    Button cmdLabelBColor{form, "cmdLabelBColor", "Background ..."};
    CheckBox chkLabelFrame{form, "chkLabelFrame", "Frame of the labels"};

    // --- colours
    Button cmdFullBlack{form, "cmdFullBlack", "Black"};
    Button cmdFullWhite{form, "cmdFullWhite", "White"};
    Button cmdRandColGrau{form, "cmdRandColGrau", "Grey"};
    Button cmdRandCol_out{form, "cmdRandCol_out", "Whole chart ..."};
    Button cmdRandCol_in{form, "cmdRandCol_in", "Chart area ..."};
    Button cmdColor_in{form, "cmdColor_in", "Plot area ..."};

    // --- frame, margins and size
    CheckBox chkDiaFrame{form, "chkDiaFrame", "Frame of the plot area"};
    OptionGroup optFrameType{form, "optFrameType", {"without", "3D", "normal", "Etched Type"}};
    UpDown UpDownRBreite{form, "UpDownRBreite"};
    Label labRBreite{form, "labRBreite"}; ///< border width, pixels
    CheckBox chkAutoRand{form, "chkAutoRand", "Borders automatic"};
    Frame frRandBreite{form, "frRandBreite"};
    Slider scrHL{form, "scrHL"}; ///< margins of the plot area, pixels
    Slider scrHR{form, "scrHR"};
    Slider scrHO{form, "scrHO"};
    Slider scrHU{form, "scrHU"};
    CheckBox chkAutoChartArea{form, "chkAutoChartArea", "Size automatic"};
    Slider scrHLChartArea{form, "scrHLChartArea"}; ///< left edge of the chart area
    Slider scrHChartArea{form, "scrHChartArea"};   ///< its right edge, so its width
    Slider scrVOChartArea{form, "scrVOChartArea"}; ///< upper edge
    Slider scrVChartArea{form, "scrVChartArea"};   ///< lower edge, so its height
};

} // namespace zorvant
