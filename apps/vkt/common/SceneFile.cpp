#include "common/SceneFile.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "common/Log.h"
#include "common/TerminalText.h"

namespace tool {

int CheckInput(const std::string& path, Log& log)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    std::string reason;
    if (!fs::exists(status))
        reason = " cannot be opened: " + ReasonOf(error);
    else if (fs::is_directory(status))
        reason = " is a folder";
    else if (fs::is_regular_file(status) && fs::file_size(path, error) == 0)
        reason = " is empty";
    if (reason.empty())
        return 0;
    log.Say(Quoted(path) + reason);
    return fs::is_regular_file(status) ? VKT::FileNotVkt : VKT::FileOpenFailed;
}

int LoadScene(VKT::XModel& model, const std::string& path, Log& log, bool loadCycles)
{
    if (const int failure = CheckInput(path, log))
        return failure;
    log.ShowProgress("reading " + path);
    const VKT::XFileResult result = model.Load(path.c_str(), loadCycles);
    return result == VKT::FileOk ? 0 : log.SayLoadFailed(path, result);
}

std::optional<FileForm> FormOf(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    char start[VKT::XFileHeader::kSize];
    const std::size_t length = file ? std::fread(start, 1, sizeof start, file.get()) : 0;
    const std::optional<VKT::XFileHeader> header = VKT::XFileHeader::Of({start, length});
    if (!header)
        return std::nullopt;
    return header->form == VKT::XFileForm::kText ? FileForm::Text : FileForm::Binary;
}

const char* NameOf(FileForm form)
{
    return form == FileForm::Text ? "text" : "binary";
}

std::string DescribeDropped(const VKT::XDroppedChunk& chunk)
{
    std::string out = chunk.key;
    if (!chunk.name.empty())
        out += " " + Quoted(chunk.name);
    return out + (chunk.isDamaged ? ": is damaged" : ": is of no known type");
}

std::string DescribeDropped(const VKT::XDroppedReference& reference)
{
    return "bone " + Quoted(reference.bone) + ": instance " + Quoted(reference.instance) + ": no " +
           WordFor(reference.link) + " of id " + std::to_string(reference.id) + " stands ahead of it";
}

VKT::u64 SizeOf(const std::string& path)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

CLI::Validator IsScenePath()
{
    const auto check = [](const std::string& path) -> std::string {
        const std::string extension = std::filesystem::path(path).extension().string();
        const std::string word = VKT::LowerCaseExtension(extension);
        return extension.size() == 4 && (word == "vkt" || word == "xld")
                   ? ""
                   : "must end in .vkt or .xld: " + path;
    };
    return CLI::Validator(check, "", "ScenePath");
}

}  // namespace tool
