// bench_mesh regular|irregular OPERATION CONTESTANT FILE
//
// Measures one load or save of workload M by one contestant. Saves write FILE anew.

#include <filesystem>

#include "Anchors.h"
#include "MeshData.h"

namespace Bench {
namespace {

Result LoadByLibrary(const char* path)
{
    StartLibrary();
    XModel model;
    const Measurement measurement;
    const XFileResult loaded = model.Load(path);
    Result result = measurement.Stop();
    if (loaded != FileOk)
        Fail("the library could not load the file");
    const XPolygonMesh& mesh = MeshOf(model);
    result.resultBytes = BytesOf(mesh);
    result.document = SumOf(mesh);
    return result;
}

template <class Reader>
Result LoadBy(const char* path)
{
    MeshData mesh;
    const Measurement measurement;
    {
        Reader in(path);
        ReadMesh(in, mesh);
    }
    Result result = measurement.Stop();
    result.resultBytes = mesh.Bytes();
    result.document = mesh.Sum();
    return result;
}

Result SaveByLibrary(const char* path, Numbers numbers, bool asText)
{
    StartLibrary();
    XModel model;
    FillModel(model, MakeMesh(numbers));
    if (!asText)
        model.GetSaveFlags().Clear(SaveAscii);
    const Measurement measurement;
    const XFileResult saved = model.Save(path);
    Result result = measurement.Stop();
    if (saved != FileOk)
        Fail("the library could not save the file");
    const bool keepsAll = !asText || numbers == Numbers::kRegular;  // else six digits do not
    if (keepsAll)
        result.document = SumOf(MeshOf(model));
    result.file = FileChecksum(path);
    return result;
}

template <class Writer>
Result SaveBy(const char* path, Numbers numbers)
{
    const MeshData mesh = MakeMesh(numbers);
    const Measurement measurement;
    {
        Writer out(path);
        WriteMesh(out, mesh);
    }
    Result result = measurement.Stop();
    result.file = FileChecksum(path);
    return result;
}

Result Run(std::string_view operation, std::string_view contestant, Numbers numbers, const char* path)
{
    const bool isLibrary = contestant == "library";
    if (operation == "load-text" && contestant == "from_chars")
        return LoadBy<FromCharsReader>(path);
    if (operation == "load-text" && contestant == "stringstream")
        return LoadBy<StringStreamReader>(path);
    if (isLibrary && operation.starts_with("load-"))
        return LoadByLibrary(path);
    std::filesystem::remove(path);
    if (operation == "save-text" && contestant == "to_chars")
        return SaveBy<ToCharsWriter>(path, numbers);
    if (operation == "save-text" && contestant == "ofstream")
        return SaveBy<FileStreamWriter>(path, numbers);
    if (isLibrary && operation.starts_with("save-"))
        return SaveByLibrary(path, numbers, operation == "save-text");
    Fail("unknown operation or contestant");
}

}  // namespace
}  // namespace Bench

int main(int argc, char** argv)
{
    using namespace Bench;
    if (argc != 5)
        Fail("usage: bench_mesh regular|irregular OPERATION CONTESTANT FILE");
    const Numbers numbers =
        argv[1] == std::string_view("irregular") ? Numbers::kIrregular : Numbers::kRegular;
    Result result = Run(argv[2], argv[3], numbers, argv[4]);
    result.fileBytes = FileSize(argv[4]);
    Print(result);
}
