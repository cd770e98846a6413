// What both kinds of metafile have in common: objects are made before they are selected and deleted
// at the end, and the state of the player is told only where it changes.
#pragma once

#include "shell/qt/meta_picture.h"
#include "shell/qt/plot_text.h"

#include <QFontMetricsF>

#include <cmath>

namespace zorvant {

/// Numbers in little-endian order.
struct MetaBytes {
    QByteArray bytes;
    void U16(unsigned value) {
        bytes.append(static_cast<char>(value & 0xFF)).append(static_cast<char>(value >> 8 & 0xFF));
    }
    void I16(int value) { U16(static_cast<unsigned>(value)); }
    void U32(quint32 value) {
        U16(value & 0xFFFF);
        U16(value >> 16);
    }
    void I32(int value) { U32(static_cast<quint32>(value)); }
    void Colour(QRgb colour) {
        U32(static_cast<quint32>(qRed(colour) | qGreen(colour) << 8 | qBlue(colour) << 16));
    }
    void Pad(qsizetype multiple) {
        while (bytes.size() % multiple != 0)
            bytes.append('\0');
    }
};

struct MetaFont {
    QString family;
    int height = 0; ///< units, of the letters without leading
    int angle = 0;  ///< tenths of degrees, counter-clockwise
    bool bold = false, italic = false;
    bool operator==(const MetaFont&) const = default;
};

/// Pixels to the units of a file.
struct MetaUnits {
    double perPixel;
    int operator()(double pixels) const { return qRound(pixels * perPixel); }
    QPoint operator()(QPointF point) const { return {(*this)(point.x()), (*this)(point.y())}; }
    QRect operator()(const QRectF& rect) const {
        return QRect((*this)(rect.topLeft()), (*this)(rect.bottomRight()) - QPoint(1, 1));
    }
    QPolygon operator()(const QPolygonF& polygon) const {
        QPolygon points;
        for (const QPointF& point : polygon)
            points.append((*this)(point));
        return points;
    }
};

/// Distances from letter to letter, so that every reader sets the text as wide as we do.
inline QList<int> Advances(const MetaText& text, const MetaUnits& units) {
    const QFontMetricsF metrics(text.font);
    QList<int> advances;
    int sum = 0;
    for (qsizetype i = 1; i <= text.text.size(); ++i) {
        const int end = units(metrics.horizontalAdvance(text.text.left(i)));
        advances.append(end - sum);
        sum = end;
    }
    return advances;
}

/// `Records` writes the records of one kind of file: CreatePen, CreateBrush, CreateFont, which give
/// the number to select by, Select, DeleteObjects, Lines, Polygons, Ellipse, FillMode, TextColour,
/// Text, Save, Restore, ClipTo.
template <class Records> class MetaWriter {
public:
    MetaWriter(Records& records, const MetaUnits& units) : records_(records), units_(units) {}

    void Write(const MetaShape& shape) {
        Clip(shape.clip);
        Use(pens_, shape.pen, now_.pen,
            [this](const auto& pen) { return records_.CreatePen(pen); });
        if (shape.closed) {
            Use(brushes_, shape.fill, now_.brush,
                [this](const auto& fill) { return records_.CreateBrush(fill); });
            if (now_.winding != shape.winding)
                records_.FillMode(*(now_.winding = shape.winding));
        }
        if (!shape.ellipse.isNull()) {
            records_.Ellipse(units_(shape.ellipse));
            return;
        }
        QList<QPolygon> outlines;
        for (const QPolygonF& outline : shape.outlines)
            if (outline.size() > 1)
                outlines.append(units_(outline));
        if (outlines.isEmpty())
            return;
        if (shape.closed) {
            records_.Polygons(outlines);
            return;
        }
        records_.Lines(outlines);
    }

    void Write(const MetaText& text) {
        if (text.text.trimmed().isEmpty())
            return;
        Clip(text.clip);
        const MetaFont font{.family = ClassicFontName(text.font),
                            .height = units_(text.font.pixelSize()),
                            .angle = qRound(text.angle * 10),
                            .bold = text.font.bold(),
                            .italic = text.font.italic()};
        Use(fonts_, font, now_.font,
            [this](const MetaFont& made) { return records_.CreateFont(made); });
        if (now_.textColour != text.colour)
            records_.TextColour(*(now_.textColour = text.colour));
        records_.Text(units_(text.start), text.text, Advances(text, units_));
    }

    void End() {
        Clip(std::nullopt);
        records_.DeleteObjects();
    }

private:
    struct State {
        std::optional<int> pen, brush, font;
        std::optional<bool> winding;
        std::optional<QRgb> textColour;
    };

    template <class Object, class Make>
    void Use(std::vector<std::pair<Object, int>>& made, const Object& wanted,
             std::optional<int>& selected, Make make) {
        auto found =
            std::ranges::find(made, wanted, [](const auto& object) { return object.first; });
        if (found == made.end()) {
            made.emplace_back(wanted, make(wanted));
            found = made.end() - 1;
        }
        if (selected != found->second)
            records_.Select(*(selected = found->second));
    }

    void Clip(const std::optional<QRectF>& clip) {
        if (clip == clip_)
            return;
        if (clip_) {
            records_.Restore();
            now_ = saved_;
        }
        clip_ = clip;
        if (clip_) {
            saved_ = now_;
            records_.Save();
            records_.ClipTo(units_(*clip_));
        }
    }

    Records& records_;
    const MetaUnits& units_;
    State now_, saved_;
    std::optional<QRectF> clip_;
    std::vector<std::pair<std::optional<MetaPen>, int>> pens_;
    std::vector<std::pair<std::optional<QRgb>, int>> brushes_;
    std::vector<std::pair<MetaFont, int>> fonts_;
};

template <class Records> void WriteUndashed(MetaWriter<Records>& writer, const MetaShape& shape) {
    if (!shape.pen || shape.pen->dashes.isEmpty()) {
        writer.Write(shape);
        return;
    }
    if (shape.fill) {
        MetaShape filled = shape;
        filled.pen.reset();
        writer.Write(filled);
    }
    writer.Write(StrokesOf(shape));
}

} // namespace zorvant
