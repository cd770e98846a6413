#include "data/file_dialog.h"

#include "platform/host.h"
#include "platform/paths.h"

namespace zorvant {
namespace {

void AskHost(FileQuestion& question) {
    const std::string pattern = question.pattern.empty() ? "*.*" : question.pattern;
    const std::optional<FileChoice> choice = host().chooseFile({
        .save = false,
        .title = question.title,
        .directory = question.directory,
        .name = FileName(question.fullPath),
        .extension = {},
        .filters = {{pattern, pattern}},
        .overwritePrompt = false,
    });
    question.cancelled = !choice || choice->path.empty();
    if (question.cancelled)
        return;
    question.fullPath = choice->path;
    question.fileName = FileName(choice->path);
    question.directory = DirectoryOf(choice->path);
}

} // namespace

FileDialogHook& fileDialogHook() {
    static FileDialogHook hook = AskHost;
    return hook;
}

void FuFileDialog(std::string& fullPath, std::string& fileName, std::string& directory,
                  const std::string& pattern, const std::string& title, bool& cancelled) {
    FileQuestion question{.fullPath = fullPath,
                          .fileName = {},
                          .directory = directory,
                          .pattern = pattern,
                          .title = title,
                          .cancelled = true};
    fileDialogHook()(question);
    cancelled = question.cancelled;
    if (cancelled)
        return;
    fullPath = question.fullPath;
    fileName = question.fileName;
    directory = question.directory;
}

SavePlace PlaceToSave(const ProjectState& ps, const std::string& path, const std::string& directory,
                      const std::string& ending) {
    if (!path.empty())
        return {directory, path};
    const std::string project = FileName(ps.ProjectFile);
    const std::string name = project.substr(0, project.rfind('.'));
    return {ps.ProjectFile.empty() ? directory : DirectoryOf(ps.ProjectFile),
            (name.empty() ? "data" : name) + ending};
}

} // namespace zorvant
