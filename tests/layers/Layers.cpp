#include "layers/Layers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace layers {
namespace {

// Where quoted includes are looked for besides the folder of the file.
constexpr const char* kIncludeFolders[] = {"src/", "", "apps/vkt/", "sdk/include/"};

bool IsHeader(const std::string& file)
{
    return file.ends_with(".h");
}

bool IsIn(const std::string& file, const std::string& folder)
{
    return file.starts_with(folder + '/');
}

const Room* RoomOf(const std::string& file, const std::vector<Room>& rooms)
{
    const Room* found = nullptr;
    for (const Room& room : rooms)
        if (IsIn(file, room.folder) && (!found || room.folder.size() > found->folder.size()))
            found = &room;
    return found;
}

const Room* FindRoom(const std::string& folder, const std::vector<Room>& rooms)
{
    const auto found =
        std::find_if(rooms.begin(), rooms.end(), [&](const Room& room) { return room.folder == folder; });
    return found == rooms.end() ? nullptr : &*found;
}

// The folders of all rooms that one may include.
void AddAllowed(const Room& room, const std::vector<Room>& rooms, std::set<std::string>& allowed)
{
    if (!allowed.insert(room.folder).second)
        return;
    for (const std::string& folder : room.below)
        if (const Room* under = FindRoom(folder, rooms))
            AddAllowed(*under, rooms, allowed);
}

// The path of what a quoted include line means; empty when it is no file of ours.
std::string Resolve(const std::string& file, const std::string& include, const Files& files)
{
    namespace fs = std::filesystem;
    const std::string beside = (fs::path(file).parent_path() / include).lexically_normal().generic_string();
    if (files.contains(beside))
        return beside;
    for (const char* folder : kIncludeFolders)
        if (const std::string path = folder + include; files.contains(path))
            return path;
    return "";
}

// What stands between the signs in the include lines that use them.
std::vector<std::string> Includes(const std::string& text, char open = '"', char close = '"')
{
    const std::string begin = std::string("#include ") + open;
    std::vector<std::string> includes;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with(begin))
            includes.push_back(line.substr(begin.size(), line.rfind(close) - begin.size()));
    return includes;
}

// The first foreign header that a file sees; empty when it sees none. Headers of the standard
// library have no ending.
std::string ForeignHeader(const std::string& file, const Files& files, std::set<std::string>& seen)
{
    if (!seen.insert(file).second)
        return "";
    const std::string& text = files.at(file);
    for (const std::string& include : Includes(text, '<', '>'))
        if (include.find('.') != std::string::npos)
            return include;
    for (const std::string& include : Includes(text))
        if (const std::string target = Resolve(file, include, files); !target.empty())
            if (std::string found = ForeignHeader(target, files, seen); !found.empty())
                return found;
    return "";
}

}  // namespace

Files ReadFiles(const std::string& root, const std::vector<std::string>& folders)
{
    namespace fs = std::filesystem;
    Files files;
    for (const std::string& folder : folders)
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(fs::path(root) / folder)) {
            const std::string extension = entry.path().extension().string();
            if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp"))
                continue;
            std::ifstream in(entry.path(), std::ios::binary);
            files[fs::relative(entry.path(), root).generic_string()] = {std::istreambuf_iterator<char>(in),
                                                                        {}};
        }
    return files;
}

std::vector<std::string> Check(const Files& files, const std::vector<Room>& rooms,
                               const std::vector<Exception>& exceptions)
{
    std::vector<std::string> findings;
    std::set<const Exception*> used;
    for (const auto& [file, text] : files) {
        const Room* const room = RoomOf(file, rooms);
        if (!room) {
            findings.push_back(file + " is in no room");
            continue;
        }
        std::set<std::string> allowed;
        AddAllowed(*room, rooms, allowed);
        for (const std::string& include : Includes(text)) {
            const std::string target = Resolve(file, include, files);
            const Room* const other = target.empty() ? nullptr : RoomOf(target, rooms);
            if (!other || allowed.contains(other->folder))
                continue;
            const auto exception =
                std::find_if(exceptions.begin(), exceptions.end(), [&](const Exception& candidate) {
                    return candidate.folder == room->folder && candidate.included == target;
                });
            if (exception != exceptions.end() && !IsHeader(file))
                used.insert(&*exception);
            else
                findings.push_back(file + " includes " + target);
        }
    }
    for (const Exception& exception : exceptions)
        if (!used.contains(&exception))
            findings.push_back(exception.folder + " needs no exception for " + exception.included);
    return findings;
}

std::vector<std::string> CheckForeign(const Files& files, const std::vector<std::string>& places)
{
    std::vector<std::string> findings;
    for (const auto& [file, text] : files) {
        const auto isHere = [&at = file](const std::string& place) { return at == place || IsIn(at, place); };
        if (std::ranges::any_of(places, isHere))
            continue;
        std::set<std::string> seen;
        if (const std::string header = ForeignHeader(file, files, seen); !header.empty())
            findings.push_back(file + " sees " + header);
    }
    return findings;
}

}  // namespace layers
