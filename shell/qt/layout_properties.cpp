#include "shell/qt/layout_properties.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// Room between the characters and the edges of a field, together.
constexpr int kEdges = 12;
/// Letters may reach beyond their own width.
constexpr int kOverhang = 4;

int WidthOfNumber(QWidget& field, int digits) {
    field.ensurePolished();
    const int text = digits * field.fontMetrics().horizontalAdvance(u'0') + kEdges;
    if (qobject_cast<const QComboBox*>(&field) == nullptr)
        return text;
    QStyleOptionComboBox option;
    option.initFrom(&field);
    option.rect = QRect(0, 0, text, text);
    option.editable = true;
    const QRect line = field.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                     QStyle::SC_ComboBoxEditField, &field);
    return text + text - line.width(); // the arrow beside the line
}

/// The room that a widget takes beside its text: margins, and the circle of an option.
int BesideText(const QWidget& widget) {
    const QMargins margins = widget.contentsMargins();
    int width = margins.left() + margins.right() + kOverhang;
    if (const auto* const option = qobject_cast<const QRadioButton*>(&widget)) {
        const QStyle& style = *option->style();
        width += style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option) +
                 style.pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, option) + 4;
    }
    return width;
}

} // namespace

void ApplyLayoutProperties(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(!widget.property("collapses").toBool());
    widget.setSizePolicy(policy);

    if (const int digits = widget.property("digits").toInt(); digits > 0)
        widget.setFixedWidth(WidthOfNumber(widget, digits));
    const QString widest = widget.property("widest").toString();
    if (widest.isEmpty())
        return;
    widget.ensurePolished();
    const int beside = BesideText(widget);
    int width = widget.minimumWidth();
    for (const QString& text : widest.split(u'|'))
        width = std::max(width, widget.fontMetrics().horizontalAdvance(text) + beside);
    widget.setMinimumWidth(width);
}

} // namespace zorvant
