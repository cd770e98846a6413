#include "dialogs/diagram/diagram_texts.h"

#include "dialogs/diagram/curve_panel.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <array>
#include <cmath>

namespace zorvant {
namespace {

/// Steps of the position sliders over the width or height of the picture.
constexpr int kPlaceSteps = 1000;

constexpr std::array<const char*, 4> kCaptions{"Design Header text", "Design Additional text",
                                               "Design X-Axis label", "Design Y-Axis label"};

bool IsBlock(DiagramText target) {
    return target == DiagramText::Header || target == DiagramText::Additional;
}
AxisId AxisOf(DiagramText target) {
    return target == DiagramText::XTitle ? AxisId::X : AxisId::Y;
}

/// Header or additional text.
const TextBlock& BlockOf(const DiagramDocument& doc) {
    return doc.TextTarget == DiagramText::Header ? doc.surface.header : doc.surface.footer;
}
void SetBlock(DiagramDocument& doc, const TextBlock& block) {
    if (doc.TextTarget == DiagramText::Header)
        SetHeader(doc.surface, block);
    else
        SetFooter(doc.surface, block);
}

/// Lines end in CR LF in a field, in a line feed on the surface.
std::string ToField(const std::string& text) {
    std::string lines;
    for (const char c : text)
        lines += c == '\n' ? kCrLf : std::string(1, c);
    return lines;
}
std::string ToSurface(std::string text) {
    std::erase(text, '\r');
    return text;
}

std::string TextOf(const DiagramDocument& doc) {
    return IsBlock(doc.TextTarget) ? BlockOf(doc).text
                                   : GetAxis(doc.surface, AxisOf(doc.TextTarget)).title;
}
void SetTextOf(DiagramDocument& doc, const std::string& text) {
    switch (doc.TextTarget) {
    case DiagramText::Header:
        return SetHeader(doc.surface, text);
    case DiagramText::Additional:
        SetFooter(doc.surface, text);
        doc.mnuAddText.enabled = text.empty();
        return;
    case DiagramText::XTitle:
    case DiagramText::YTitle:
        const AxisId axis = AxisOf(doc.TextTarget);
        SetAxisTitle(doc.surface, axis, text, GetAxis(doc.surface, axis).titleRotation);
    }
}

int Steps(double share) {
    return std::clamp(static_cast<int>(std::lround(share * kPlaceSteps)), 0, kPlaceSteps);
}

/// A text at its automatic place shows where the view has put it.
void ShowPlace(DiagramDocument& doc) {
    const Location& location = BlockOf(doc).location;
    const PlotLayout& layout = doc.surface.layout;
    const PixelRect& rect = doc.TextTarget == DiagramText::Header ? layout.header : layout.footer;
    const PixelRect& picture = layout.picture;
    const bool laidOut = location.automatic && picture.width > 0 && picture.height > 0;
    doc.HScroll1.value = Steps(laidOut ? rect.left / picture.width : location.x);
    doc.VScroll1.value = Steps(laidOut ? rect.top / picture.height : location.y);
    doc.cmdTextPlaceAuto.enabled = !location.automatic;
}

/// The view has laid the picture out anew: a text at its automatic place has moved.
void FollowPlace(DiagramDocument& doc) {
    if (IsBlock(doc.TextTarget))
        ShowPlace(doc);
}

} // namespace

void ShowText(DiagramDocument& doc) {
    const bool block = IsBlock(doc.TextTarget);
    const PlotAxis& y = GetAxis(doc.surface, AxisId::Y);
    doc.fraSchrift.text = kCaptions.at(static_cast<std::size_t>(doc.TextTarget) - 1);
    std::string text = TextOf(doc);
    text.erase(text.find_last_not_of(' ') + 1);
    doc.schrift.text = ToField(text);
    for (Control* control : std::initializer_list<Control*>{
             &doc.cmdSchriftHFarbe, &doc.chkTextFrame, &doc.fraTextPlace, &doc.HScroll1,
             &doc.VScroll1, &doc.cmdTextPlaceAuto})
        control->visible = block;
    doc.cmdZiffFont.visible = !block;
    doc.fraYText.visible = doc.fraYZiff.visible = doc.TextTarget == DiagramText::YTitle;
    doc.optOrientYAxText.selected = y.titleRotation == TextRotation::Vertical ? 1 : 0;
    doc.optOrientYAxZiff.selected = y.annotationRotation == TextRotation::Vertical ? 1 : 0;
    if (!block)
        return;
    doc.chkTextFrame.checked = BlockOf(doc).border.type != BorderType::None;
    doc.cmdSchriftHFarbe.backColour = BlockOf(doc).colours.back;
    ShowPlace(doc);
}

void mnuTextDesign_Click(Workspace& ps, DiagramDocument& doc, int index) {
    if (index == kCurveTexts) {
        mnuKurvenDesign_Click(ps, doc);
        return;
    }
    FuPanelsZu(doc);
    doc.TextTarget = static_cast<DiagramText>(index);
    ShowText(doc);
    doc.fraSchrift.visible = true;
    doc.setFocus = &doc.schrift;
}

void schrift_KeyPress(int& key) {
    if (key == kKeyCtrlEnter)
        key = kTextBreakMark;
    else if (key == kKeyEnter)
        key = 0;
}

void schrift_Change(DiagramDocument& doc) {
    std::string& text = doc.schrift.text;
    for (std::size_t at; (at = text.find(kTextBreakMark)) != std::string::npos;)
        text.replace(at, 1, kCrLf);
    SetTextOf(doc, ToSurface(text));
    FollowPlace(doc);
}

void cmdSchriftFertig_Click(DiagramDocument& doc) {
    doc.fraSchrift.visible = false;
}

void cmdFont_Click(DiagramDocument& doc) {
    if (IsBlock(doc.TextTarget)) {
        TextBlock block = BlockOf(doc);
        const auto font = host().chooseFont(block.font);
        if (!font)
            return;
        block.font = *font;
        SetBlock(doc, block);
        FollowPlace(doc);
        return;
    }
    const AxisId id = AxisOf(doc.TextTarget);
    const PlotAxis& axis = GetAxis(doc.surface, id);
    if (const auto font = host().chooseFont(axis.titleFont))
        SetAxisFont(doc.surface, id, axis.font, *font);
}

void cmdZiffFont_Click(DiagramDocument& doc) {
    const AxisId id = AxisOf(doc.TextTarget);
    const PlotAxis& axis = GetAxis(doc.surface, id);
    if (const auto font = host().chooseFont(axis.font))
        SetAxisFont(doc.surface, id, *font, axis.titleFont);
}

void cmdSchriftHFarbe_Click(DiagramDocument& doc) {
    TextBlock block = BlockOf(doc);
    const auto colour = host().chooseColour(block.colours.back);
    if (!colour)
        return;
    block.colours.back = *colour;
    block.colours.transparent = false;
    SetBlock(doc, block);
    doc.cmdSchriftHFarbe.backColour = *colour;
}

void chkTextFrame_Click(DiagramDocument& doc) {
    TextBlock block = BlockOf(doc);
    block.border.type = doc.chkTextFrame.checked ? BorderType::Plain : BorderType::None;
    SetBlock(doc, block);
    FollowPlace(doc);
}

void TextPlace_Change(DiagramDocument& doc) {
    TextBlock block = BlockOf(doc);
    block.location = {static_cast<double>(doc.HScroll1.value) / kPlaceSteps,
                      static_cast<double>(doc.VScroll1.value) / kPlaceSteps, false};
    SetBlock(doc, block);
    doc.cmdTextPlaceAuto.enabled = true;
}

void cmdTextPlaceAuto_Click(DiagramDocument& doc) {
    TextBlock block = BlockOf(doc);
    block.location.automatic = true;
    SetBlock(doc, block);
    ShowPlace(doc);
}

void optOrientYAxText_Click(DiagramDocument& doc, int index) {
    doc.optOrientYAxText.selected = index;
    SetAxisTitle(doc.surface, AxisId::Y, GetAxis(doc.surface, AxisId::Y).title,
                 index == 1 ? TextRotation::Vertical : TextRotation::Horizontal);
}

void optOrientYAxZiff_Click(DiagramDocument& doc, int index) {
    doc.optOrientYAxZiff.selected = index;
    SetAxisAnnotation(doc.surface, AxisId::Y, GetAxis(doc.surface, AxisId::Y).annotation,
                      index == 1 ? TextRotation::Vertical : TextRotation::Horizontal);
}

void WireTexts(Workspace& ps, DiagramDocument& doc) {
    doc.schrift.multiLine = true;
    doc.schrift.toolTip = "Insert a new line => <Ctrl><Enter>";
    doc.HScroll1.maximum = doc.VScroll1.maximum = kPlaceSteps;
    doc.optOrientYAxText.selected = 1;
    doc.optOrientYAxZiff.selected = 0;
    constexpr std::array<const char*, 5> kTexts{"Header", "Additional text", "X-axis label",
                                                "Y-axis label", "Curve label and legend"};
    for (int i = 1; i <= kCurveTexts; ++i) {
        doc.mnuTextDesign(i).text = kTexts.at(static_cast<std::size_t>(i - 1));
        doc.mnuTextDesign(i).onClick = [&ps, &doc, i] { mnuTextDesign_Click(ps, doc, i); };
    }
    doc.mnuAddText.onClick = doc.mnuTextDesign(static_cast<int>(DiagramText::Additional)).onClick;
    doc.schrift.onKeyPress = [](int& key) { schrift_KeyPress(key); };
    doc.schrift.onChange = [&doc] { schrift_Change(doc); };
    doc.cmdSchriftFertig.onClick = [&doc] { cmdSchriftFertig_Click(doc); };
    doc.cmdFont.onClick = [&doc] { cmdFont_Click(doc); };
    doc.cmdZiffFont.onClick = [&doc] { cmdZiffFont_Click(doc); };
    doc.cmdSchriftHFarbe.onClick = [&doc] { cmdSchriftHFarbe_Click(doc); };
    doc.chkTextFrame.onClick = [&doc] { chkTextFrame_Click(doc); };
    doc.HScroll1.onChange = doc.VScroll1.onChange = [&doc] { TextPlace_Change(doc); };
    doc.cmdTextPlaceAuto.onClick = [&doc] { cmdTextPlaceAuto_Click(doc); };
    doc.optOrientYAxText.onClick = [&doc](int index) { optOrientYAxText_Click(doc, index); };
    doc.optOrientYAxZiff.onClick = [&doc](int index) { optOrientYAxZiff_Click(doc, index); };
}

} // namespace zorvant
