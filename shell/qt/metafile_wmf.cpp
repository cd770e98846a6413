#include "platform/encoding.h"
#include "shell/qt/metafile.h"
#include "shell/qt/metafile_writer.h"

namespace zorvant {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMostUnitsPerInch = 1200;
constexpr double kLargestCoordinate = 32000; ///< of 16 bits
constexpr qsizetype kMostPoints = 16000;     ///< of one line

enum Meta : unsigned {
    kEof = 0x0000,
    kSaveDc = 0x001E,
    kSetBkMode = 0x0102,
    kSetMapMode = 0x0103,
    kSetPolyFillMode = 0x0106,
    kRestoreDc = 0x0127,
    kSelectObject = 0x012D,
    kSetTextAlign = 0x012E,
    kDeleteObject = 0x01F0,
    kSetTextColor = 0x0209,
    kSetWindowOrg = 0x020B,
    kSetWindowExt = 0x020C,
    kCreatePenIndirect = 0x02FA,
    kCreateFontIndirect = 0x02FB,
    kCreateBrushIndirect = 0x02FC,
    kPolygon = 0x0324,
    kPolyline = 0x0325,
    kIntersectClipRect = 0x0416,
    kEllipse = 0x0418,
    kPolyPolygon = 0x0538,
    kExtTextOut = 0x0A32
};
constexpr int kAnisotropic = 8, kTransparent = 1, kBaseline = 24, kAlternate = 1, kWinding = 2;
constexpr unsigned kPenNull = 5, kBrushSolid = 0, kBrushNull = 1;

/// The letters of Windows-1252, or nothing where it lacks one.
std::optional<QByteArray> Encode(QString text) {
    text.replace(QChar(0x2212), QChar(0x2013)); // the minus sign, which looks like the dash
    const std::string bytes = EncodeText(text.toStdString());
    if (bytes.size() != static_cast<std::size_t>(text.size()))
        return std::nullopt;
    return QByteArray::fromStdString(bytes);
}

class WmfRecords {
public:
    explicit WmfRecords(const MetaUnits& units) : units_(units) {}

    const QByteArray& bytes() const { return out_.bytes; }
    quint32 longest() const { return longest_; } ///< words

    void Numbers(Meta type, std::initializer_list<int> numbers) {
        MetaBytes record;
        for (const int number : numbers)
            record.I16(number);
        Add(type, record);
    }

    int CreatePen(const std::optional<MetaPen>& pen) {
        MetaBytes record;
        constexpr unsigned kFlat = 0x200, kSquare = 0x100, kBevel = 0x1000, kMiter = 0x2000;
        unsigned style = kPenNull;
        if (pen) {
            style = pen->cap == Qt::FlatCap ? kFlat : pen->cap == Qt::SquareCap ? kSquare : 0;
            style |= pen->join == Qt::BevelJoin ? kBevel : pen->join == Qt::RoundJoin ? 0 : kMiter;
        }
        record.U16(style);
        record.I16(pen ? std::max(1, units_(pen->width)) : 0);
        record.I16(0);
        record.Colour(pen ? pen->colour : 0);
        Add(kCreatePenIndirect, record);
        return objects_++;
    }
    int CreateBrush(const std::optional<QRgb>& fill) {
        MetaBytes record;
        record.U16(fill ? kBrushSolid : kBrushNull);
        record.Colour(fill.value_or(0));
        record.U16(0); // no hatching
        Add(kCreateBrushIndirect, record);
        return objects_++;
    }
    int CreateFont(const MetaFont& font) {
        constexpr int kRegular = 400, kBold = 700;
        constexpr qsizetype kFaceLength = 32;
        MetaBytes record;
        record.I16(-font.height);
        record.I16(0); // the width that goes with it
        record.I16(font.angle);
        record.I16(font.angle);
        record.I16(font.bold ? kBold : kRegular);
        // no lines under or through, Windows-1252, default precisions and pitch
        record.bytes.append(font.italic ? '\1' : '\0').append(7, '\0');
        const QByteArray face = font.family.toLatin1().left(kFaceLength - 1);
        record.bytes.append(face).append(kFaceLength - face.size(), '\0');
        Add(kCreateFontIndirect, record);
        return objects_++;
    }
    void Select(int object) { Numbers(kSelectObject, {object}); }
    void DeleteObjects() {
        for (int object = 0; object < objects_; ++object)
            Numbers(kDeleteObject, {object});
    }
    int objects() const { return objects_; }

    void Lines(const QList<QPolygon>& lines) {
        for (const QPolygon& line : lines)
            for (qsizetype from = 0; from + 1 < line.size(); from += kMostPoints - 1)
                Points(kPolyline, {line.mid(from, kMostPoints)});
    }
    void Polygons(const QList<QPolygon>& outlines) {
        Points(outlines.size() == 1 ? kPolygon : kPolyPolygon, outlines);
    }
    void Ellipse(const QRect& box) {
        Numbers(kEllipse, {box.bottom() + 1, box.right() + 1, box.top(), box.left()});
    }
    void FillMode(bool winding) { Numbers(kSetPolyFillMode, {winding ? kWinding : kAlternate, 0}); }
    void TextColour(QRgb colour) {
        MetaBytes record;
        record.Colour(colour);
        Add(kSetTextColor, record);
    }
    void Save() { Numbers(kSaveDc, {}); }
    void Restore() { Numbers(kRestoreDc, {-1}); }
    void ClipTo(const QRect& rect) {
        Numbers(kIntersectClipRect, {rect.bottom() + 1, rect.right() + 1, rect.top(), rect.left()});
    }
    void Text(QPoint start, const QString& text, const QList<int>& advances) {
        MetaBytes record;
        record.I16(start.y());
        record.I16(start.x());
        record.I16(static_cast<int>(text.size()));
        record.U16(0); // no options
        record.bytes.append(Encode(text).value_or(QByteArray(text.size(), '?')));
        record.Pad(2);
        for (const int advance : advances)
            record.I16(advance);
        Add(kExtTextOut, record);
    }

private:
    void Add(Meta type, const MetaBytes& record) {
        const auto words = static_cast<quint32>(record.bytes.size() / 2 + 3);
        longest_ = std::max(longest_, words);
        out_.U32(words);
        out_.U16(type);
        out_.bytes.append(record.bytes);
    }
    void Points(Meta type, const QList<QPolygon>& outlines) {
        MetaBytes record;
        if (type == kPolyPolygon)
            record.I16(static_cast<int>(outlines.size()));
        for (const QPolygon& outline : outlines)
            record.I16(static_cast<int>(outline.size()));
        for (const QPolygon& outline : outlines)
            for (const QPoint& point : outline) {
                record.I16(point.x());
                record.I16(point.y());
            }
        Add(type, record);
    }

    const MetaUnits& units_;
    MetaBytes out_;
    quint32 longest_ = 0;
    int objects_ = 0; ///< numbered from 0
};

void WriteItem(MetaWriter<WmfRecords>& writer, const std::variant<MetaShape, MetaText>& item) {
    const auto* const text = std::get_if<MetaText>(&item);
    if (text == nullptr)
        WriteUndashed(writer, std::get<MetaShape>(item));
    else if (Encode(text->text))
        writer.Write(*text);
    else
        writer.Write(OutlinesOf(*text));
}

/// The header of Aldus for placeable files.
QByteArray PlacingHeader(QSize units, int unitsPerInch) {
    MetaBytes header;
    header.U32(0x9AC6CDD7);
    header.U16(0);
    for (const int edge : {0, 0, units.width(), units.height()})
        header.I16(edge);
    header.I16(unitsPerInch);
    header.U32(0);
    unsigned check = 0;
    for (qsizetype i = 0; i < header.bytes.size(); i += 2)
        check ^= static_cast<unsigned char>(header.bytes[i]) |
                 static_cast<unsigned>(static_cast<unsigned char>(header.bytes[i + 1])) << 8;
    header.U16(check);
    return header.bytes;
}

} // namespace

QByteArray WmfBytes(const MetaPicture& picture, bool placeable) {
    const double inches = std::max(picture.size.width(), picture.size.height()) / kPixelsPerInch;
    const double unitsPerInch =
        std::floor(std::min(kMostUnitsPerInch, kLargestCoordinate / inches));
    const MetaUnits units{.perPixel = unitsPerInch / kPixelsPerInch};
    const QSize size(units(picture.size.width()), units(picture.size.height()));
    WmfRecords records(units);
    records.Numbers(kSetMapMode, {kAnisotropic});
    records.Numbers(kSetWindowOrg, {0, 0});
    records.Numbers(kSetWindowExt, {size.height(), size.width()});
    records.Numbers(kSetBkMode, {kTransparent, 0});
    records.Numbers(kSetTextAlign, {kBaseline, 0});
    MetaWriter<WmfRecords> writer(records, units);
    for (const auto& item : picture.items)
        WriteItem(writer, item);
    writer.End();
    records.Numbers(kEof, {});

    constexpr unsigned kHeaderWords = 9;
    MetaBytes header;
    header.U16(1); // records follow
    header.U16(kHeaderWords);
    header.U16(0x300);
    header.U32(kHeaderWords + static_cast<quint32>(records.bytes().size() / 2));
    header.I16(records.objects());
    header.U32(records.longest());
    header.U16(0);
    return (placeable ? PlacingHeader(size, static_cast<int>(unitsPerInch)) : QByteArray()) +
           header.bytes + records.bytes();
}

} // namespace zorvant
