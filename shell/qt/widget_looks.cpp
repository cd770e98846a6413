#include "shell/qt/widget_looks.h"

#include "shell/qt/qt_text.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QToolBar>

namespace zorvant {
namespace {

/// Relative luminance above which black reads better than white.
constexpr double kLightGround = 0.4;

QColor ReadableOn(const QColor& ground) {
    const double luminance =
        0.2126 * ground.redF() + 0.7152 * ground.greenF() + 0.0722 * ground.blueF();
    return luminance > kLightGround ? Qt::black : Qt::white;
}

bool HoldsText(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr;
}

void ShowColours(QWidget& widget, Colour back, Colour fore) {
    QPalette palette; // the style's; only what a record asks for is set in it
    const bool isButton = qobject_cast<QAbstractButton*>(&widget) != nullptr;
    const auto ground = HoldsText(widget) ? QPalette::Base
                        : isButton        ? QPalette::Button
                                          : QPalette::Window;
    const auto text = HoldsText(widget) ? QPalette::Text
                      : isButton        ? QPalette::ButtonText
                                        : QPalette::WindowText;
    if (back != kStyleColour) {
        const QColor colour = QColor::fromRgb(back);
        palette.setColor(ground, colour);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, text, ReadableOn(colour));
    }
    if (fore != kStyleColour)
        palette.setColor(text, QColor::fromRgb(fore));
    widget.setPalette(back == kStyleColour && fore == kStyleColour ? QPalette() : palette);
    if (ground == QPalette::Window)
        widget.setAutoFillBackground(back != kStyleColour);
}

/// A tool bar shows its widgets by actions of its own.
void SetVisible(QWidget& widget, bool visible) {
    if (const auto* const bar = qobject_cast<QToolBar*>(widget.parentWidget()))
        for (QAction* action : bar->actions())
            if (bar->widgetForAction(action) == &widget) {
                action->setVisible(visible);
                return;
            }
    widget.setVisible(visible);
}

/// Bold letters a little smaller, so that a caption needs no more room than a plain one; no lower
/// either.
void SetBold(QWidget& widget, bool bold) {
    constexpr double kBoldSize = 0.89, kSmaller = 0.97;
    QFont font;
    if (bold) {
        widget.setMinimumHeight(std::max(widget.minimumHeight(), widget.sizeHint().height()));
        const QString text = widget.property("text").toString();
        const int room = widget.fontMetrics().horizontalAdvance(text);
        double size = widget.font().pointSizeF() * kBoldSize;
        QFont wanted = widget.font();
        wanted.setBold(true);
        for (int tries = 0; tries < 10; ++tries, size *= kSmaller) {
            wanted.setPointSizeF(size);
            if (QFontMetrics(wanted, &widget).horizontalAdvance(text) <= room)
                break;
        }
        font.setBold(true);
        font.setPointSizeF(size);
    }
    widget.setFont(font); // what is not set in it stays its parent's
}

} // namespace

bool IsUsable(const CommonContents& contents) {
    return contents.enabled && contents.available;
}

const std::string& TipOf(const CommonContents& contents) {
    return IsUsable(contents) || contents.disabledTip.empty() ? contents.toolTip
                                                              : contents.disabledTip;
}

void ShowCommon(QWidget& widget, const CommonContents& wanted,
                const std::optional<CommonContents>& shown) {
    const bool first = !shown.has_value();
    const CommonContents& was = first ? CommonContents() : *shown;
    // The pages of a stack are shown by the stack alone.
    const bool isPage = qobject_cast<QStackedWidget*>(widget.parentWidget()) != nullptr;
    if ((first || wanted.visible != was.visible) && !isPage)
        SetVisible(widget, wanted.visible);
    if (first || IsUsable(wanted) != IsUsable(was))
        widget.setEnabled(IsUsable(wanted));
    const QString tip = PlainTip(TipOf(wanted));
    if (widget.toolTip() != tip)
        widget.setToolTip(tip);
    if (wanted.bold != was.bold)
        SetBold(widget, wanted.bold);
    if (wanted.backColour != was.backColour || wanted.foreColour != was.foreColour)
        ShowColours(widget, wanted.backColour, wanted.foreColour);
}

void ShowCommon(QAction& action, const CommonContents& wanted) {
    action.setVisible(wanted.visible);
    action.setEnabled(IsUsable(wanted));
    action.setToolTip(PlainTip(TipOf(wanted)));
    action.setStatusTip(IsUsable(wanted) ? QString() : action.toolTip());
    if (!action.isSeparator())
        action.setText(WithMnemonic(wanted.text));
    if (action.menu() != nullptr)
        action.menu()->setToolTipsVisible(true);
}

} // namespace zorvant
