#include "data/protocol.h"

#include "data/protocol_name.h"
#include "data/protocol_text.h"
#include "platform/encoding.h"
#include "platform/files.h"

#include <algorithm>
#include <filesystem>

namespace zorvant {

void ClearProtokollDaten(ProjectState& ps, int rows) {
    ps.ProtokollDaten.assign(static_cast<std::size_t>(std::max(rows, 1)), ProtocolRow{});
}

void RecordProtocolRows(ProjectState& ps, bool series) {
    if (ps.ProtokollDaten.empty())
        ClearProtokollDaten(ps);
    const std::size_t wanted = series ? static_cast<std::size_t>(std::max(ps.NKask, 1)) : 1;
    const std::size_t taken = std::min(wanted, ps.ProtokollDaten.size());
    ps.ProtocolOpen = true;
    ps.ProtokollTabelle.insert(ps.ProtokollTabelle.end(), ps.ProtokollDaten.begin(),
                               ps.ProtokollDaten.begin() + static_cast<std::ptrdiff_t>(taken));
    ps.ProtokollRows = static_cast<int>(ps.ProtokollTabelle.size());
}

std::string CloseProtocol(ProjectState& ps, CalcTask caller, std::string_view date) {
    const std::string path = ProtocolPath(ps);
    if (ps.ProtocolOpen)
        WriteFileAtomically(path, EncodeText(ProtocolText(ps, caller, date)));
    DeleteEmptyProtocol(ps);
    std::string text;
    if (!ps.ProtocolFile.empty() && FileExists(path))
        text = ProtocolClipboardText(DecodeText(ReadFile(path)), ps.CsvSep);
    ps.ProtocolFile = NextProtocolName(ps);
    ps.ProtocolOpen = false;
    ps.ProtokollTabelle.clear();
    ps.ProtokollRows = 0;
    return text;
}

void DeleteEmptyProtocol(const ProjectState& ps) {
    if (ps.ProtocolFile.empty())
        return;
    std::error_code failed;
    const std::filesystem::path path(ProtocolPath(ps));
    if (std::filesystem::is_regular_file(path, failed) &&
        std::filesystem::file_size(path, failed) == 0 && !failed)
        std::filesystem::remove(path, failed);
}

} // namespace zorvant
