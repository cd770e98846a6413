#include "shell/qt/metafile.h"
#include "shell/qt/metafile_writer.h"

namespace zorvant {
namespace {

constexpr int kUnitsPerInch = 1200;
constexpr double kPixelsPerInch = 96;
// The device that the units belong to: 254 mm wide and high.
constexpr int kDeviceMillimetres = 254;
constexpr int kDeviceUnits = kDeviceMillimetres * kUnitsPerInch * 10 / 254;
constexpr double kHundredthsPerUnit = 2540.0 / kUnitsPerInch; ///< 0.01 mm

enum Emr : quint32 {
    kHeader = 1,
    kPolygon = 3,
    kPolyline = 4,
    kPolyPolyline = 7,
    kPolyPolygon = 8,
    kSetWindowExtEx = 9,
    kSetWindowOrgEx = 10,
    kSetViewportExtEx = 11,
    kSetViewportOrgEx = 12,
    kEof = 14,
    kSetMapMode = 17,
    kSetBkMode = 18,
    kSetPolyFillMode = 19,
    kSetTextAlign = 22,
    kSetTextColor = 24,
    kIntersectClipRect = 30,
    kSaveDc = 33,
    kRestoreDc = 34,
    kSelectObject = 37,
    kCreateBrushIndirect = 39,
    kDeleteObject = 40,
    kEllipse = 42,
    kExtCreateFontIndirectW = 82,
    kExtTextOutW = 84,
    kExtCreatePen = 95
};
constexpr quint32 kAnisotropic = 8, kTransparent = 1, kBaseline = 24;
constexpr quint32 kAlternate = 1, kWinding = 2;
constexpr quint32 kPenGeometric = 0x10000, kBrushSolid = 0;
/// What every player has: nothing to fill with, nothing to draw with.
constexpr int kNullBrush = static_cast<int>(0x80000005), kNullPen = static_cast<int>(0x80000008);
constexpr quint32 kCompatible = 1; ///< graphics mode
constexpr int kHeaderSize = 108;
constexpr int kFaceLength = 32, kFullNameLength = 64, kStyleLength = 32; ///< characters

quint32 CapAndJoin(const MetaPen& pen) {
    const quint32 cap = pen.cap == Qt::FlatCap ? 0x200 : pen.cap == Qt::SquareCap ? 0x100 : 0;
    const quint32 join = pen.join == Qt::BevelJoin   ? 0x1000
                         : pen.join == Qt::RoundJoin ? 0
                                                     : 0x2000;
    return cap | join;
}

class EmfRecords {
public:
    explicit EmfRecords(const MetaUnits& units) : units_(units) {}

    int count() const { return count_; }
    const QByteArray& bytes() const { return out_.bytes; }

    /// A record of 32-bit numbers.
    void Numbers(Emr type, std::initializer_list<int> numbers) {
        MetaBytes record;
        for (const int number : numbers)
            record.I32(number);
        Add(type, record);
    }

    int CreatePen(const std::optional<MetaPen>& pen) {
        if (!pen)
            return kNullPen;
        MetaBytes record;
        record.I32(++objects_);
        for (int i = 0; i < 4; ++i)
            record.U32(0); // no bitmap
        record.U32(kPenGeometric | CapAndJoin(*pen));
        record.I32(std::max(1, units_(pen->width)));
        record.U32(kBrushSolid);
        record.Colour(pen->colour);
        record.U32(0); // no hatching
        record.U32(0); // no strokes
        Add(kExtCreatePen, record);
        return objects_;
    }

    int CreateBrush(const std::optional<QRgb>& fill) {
        if (!fill)
            return kNullBrush;
        MetaBytes record;
        record.I32(++objects_);
        record.U32(kBrushSolid);
        record.Colour(*fill);
        record.U32(0); // no hatching
        Add(kCreateBrushIndirect, record);
        return objects_;
    }

    int CreateFont(const MetaFont& font) {
        constexpr int kRegular = 400, kBold = 700;
        MetaBytes record;
        record.I32(++objects_);
        record.I32(-font.height);
        record.I32(0); // the width that goes with it
        record.I32(font.angle);
        record.I32(font.angle);
        record.I32(font.bold ? kBold : kRegular);
        record.bytes.append(font.italic ? '\1' : '\0').append(2, '\0'); // no lines under or through
        record.bytes.append('\1').append(4, '\0'); // default character set, precisions and pitch
        Characters(record, font.family, kFaceLength);
        Characters(record, font.family, kFullNameLength);
        Characters(record, QString(), kStyleLength);
        record.bytes.append(24, '\0'); // version, size, match, vendor, culture, panose
        Add(kExtCreateFontIndirectW, record);
        return objects_;
    }

    void Select(int object) { Numbers(kSelectObject, {object}); }
    void DeleteObjects() {
        for (const int stock : {kNullPen, kNullBrush})
            Select(stock);
        for (int object = 1; object <= objects_; ++object)
            Numbers(kDeleteObject, {object});
    }
    int objects() const { return objects_; }

    void Lines(const QList<QPolygon>& lines) {
        Points(lines.size() == 1 ? kPolyline : kPolyPolyline, lines);
    }
    void Polygons(const QList<QPolygon>& outlines) {
        Points(outlines.size() == 1 ? kPolygon : kPolyPolygon, outlines);
    }
    void Ellipse(const QRect& box) {
        Numbers(kEllipse, {box.left(), box.top(), box.right() + 1, box.bottom() + 1});
    }
    void FillMode(bool winding) {
        Numbers(kSetPolyFillMode, {static_cast<int>(winding ? kWinding : kAlternate)});
    }
    void TextColour(QRgb colour) {
        MetaBytes record;
        record.Colour(colour);
        Add(kSetTextColor, record);
    }
    void Save() { Numbers(kSaveDc, {}); }
    void Restore() { Numbers(kRestoreDc, {-1}); }
    void ClipTo(const QRect& rect) {
        Numbers(kIntersectClipRect, {rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1});
    }

    void Text(QPoint start, const QString& text, const QList<int>& advances) {
        constexpr quint32 kStringAt = 76; // from the start of the record
        MetaBytes letters;
        for (const QChar letter : text)
            letters.U16(letter.unicode());
        letters.Pad(4);
        MetaBytes record;
        Bounds(record, QRect(start, start));
        record.U32(kCompatible);
        for (int axis = 0; axis < 2; ++axis) {
            const auto scale = static_cast<float>(kHundredthsPerUnit);
            record.U32(std::bit_cast<quint32>(scale));
        }
        record.I32(start.x());
        record.I32(start.y());
        record.U32(static_cast<quint32>(text.size()));
        record.U32(kStringAt);
        record.U32(0);                     // no options
        Bounds(record, QRect(0, 0, 0, 0)); // no rectangle
        record.U32(kStringAt + static_cast<quint32>(letters.bytes.size()));
        record.bytes.append(letters.bytes);
        for (const int advance : advances)
            record.I32(advance);
        Add(kExtTextOutW, record);
    }

    void End() {
        constexpr int kRecordSize = 20, kPaletteAt = 16;
        Numbers(kEof, {0, kPaletteAt, kRecordSize});
    }

private:
    void Add(Emr type, const MetaBytes& record) {
        out_.U32(type);
        out_.U32(static_cast<quint32>(record.bytes.size()) + 8);
        out_.bytes.append(record.bytes);
        ++count_;
    }
    static void Bounds(MetaBytes& record, const QRect& rect) {
        for (const int edge : {rect.left(), rect.top(), rect.right(), rect.bottom()})
            record.I32(edge);
    }
    /// A name of fixed length, ended by zeros.
    static void Characters(MetaBytes& record, const QString& text, int length) {
        for (int i = 0; i < length; ++i)
            record.U16(i < text.size() && i + 1 < length ? text[i].unicode() : 0U);
    }
    void Points(Emr type, const QList<QPolygon>& outlines) {
        MetaBytes record;
        QRect bounds;
        quint32 total = 0;
        for (const QPolygon& outline : outlines) {
            bounds |= outline.boundingRect();
            total += static_cast<quint32>(outline.size());
        }
        Bounds(record, bounds);
        const bool several = outlines.size() > 1;
        if (several)
            record.U32(static_cast<quint32>(outlines.size()));
        record.U32(total);
        if (several)
            for (const QPolygon& outline : outlines)
                record.U32(static_cast<quint32>(outline.size()));
        for (const QPolygon& outline : outlines)
            for (const QPoint& point : outline) {
                record.I32(point.x());
                record.I32(point.y());
            }
        Add(type, record);
    }

    const MetaUnits& units_;
    MetaBytes out_;
    int count_ = 0;
    int objects_ = 0; ///< number 0 is the file itself
};

QByteArray Header(QSize units, const EmfRecords& records, int handles, const QString& title) {
    const QString description = QStringLiteral("ZORVANT") + QChar(0) + title + QChar(0) + QChar(0);
    MetaBytes text;
    for (const QChar letter : description)
        text.U16(letter.unicode());
    text.Pad(4);
    const auto size = static_cast<quint32>(kHeaderSize + text.bytes.size());
    MetaBytes header;
    header.U32(kHeader);
    header.U32(size);
    for (const int edge : {0, 0, units.width() - 1, units.height() - 1})
        header.I32(edge);
    for (const double edge :
         {0.0, 0.0, units.width() * kHundredthsPerUnit, units.height() * kHundredthsPerUnit})
        header.I32(qRound(edge));
    header.U32(0x464D4520); // " EMF"
    header.U32(0x10000);
    header.U32(size + static_cast<quint32>(records.bytes().size()));
    header.I32(records.count() + 1);
    header.I16(handles + 1);
    header.U16(0);
    header.U32(static_cast<quint32>(description.size()));
    header.I32(kHeaderSize);
    header.U32(0); // no palette
    for (int axis = 0; axis < 2; ++axis)
        header.I32(kDeviceUnits);
    for (int axis = 0; axis < 2; ++axis)
        header.I32(kDeviceMillimetres);
    for (int i = 0; i < 3; ++i)
        header.U32(0); // no pixel format, no 3D
    for (int axis = 0; axis < 2; ++axis)
        header.I32(kDeviceMillimetres * 1000);
    return header.bytes + text.bytes;
}

/// Dashed lines become single strokes of one record: many readers draw pens with strokes of their
/// own as solid ones.
void WriteItem(MetaWriter<EmfRecords>& writer, const std::variant<MetaShape, MetaText>& item) {
    if (const auto* const text = std::get_if<MetaText>(&item))
        writer.Write(*text);
    else
        WriteUndashed(writer, std::get<MetaShape>(item));
}

} // namespace

QByteArray EmfBytes(const MetaPicture& picture, const QString& title) {
    const MetaUnits units{.perPixel = kUnitsPerInch / kPixelsPerInch};
    const QSize size(units(picture.size.width()), units(picture.size.height()));
    EmfRecords records(units);
    records.Numbers(kSetMapMode, {kAnisotropic});
    records.Numbers(kSetWindowOrgEx, {0, 0});
    records.Numbers(kSetWindowExtEx, {size.width(), size.height()});
    records.Numbers(kSetViewportOrgEx, {0, 0});
    records.Numbers(kSetViewportExtEx, {size.width(), size.height()});
    records.Numbers(kSetBkMode, {kTransparent});
    records.Numbers(kSetTextAlign, {kBaseline});
    MetaWriter<EmfRecords> writer(records, units);
    for (const auto& item : picture.items)
        WriteItem(writer, item);
    writer.End();
    records.End();
    return Header(size, records, records.objects(), title) + records.bytes();
}

} // namespace zorvant
