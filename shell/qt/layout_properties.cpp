#include "shell/qt/layout_properties.h"

#include <QtWidgets>

namespace zorvant {

void ApplyLayoutProperties(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(!widget.property("collapses").toBool());
    widget.setSizePolicy(policy);

    const QString widest = widget.property("widest").toString();
    if (widest.isEmpty())
        return;
    widget.ensurePolished();
    const QMargins margins = widget.contentsMargins();
    int width = widget.minimumWidth();
    for (const QString& text : widest.split(u'|'))
        width = std::max(width, widget.fontMetrics().horizontalAdvance(text) + margins.left() +
                                    margins.right());
    widget.setMinimumWidth(width);
}

} // namespace zorvant
