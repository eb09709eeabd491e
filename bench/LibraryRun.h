#pragma once

#include <filesystem>
#include <functional>

#include "Measure.h"
#include "VKT/document/Model.h"
#include "VKT/stream/NumberText.h"  // or the one in from_chars/VKT

namespace Bench {

// One load or save of a document by the library. The documents go with the process: their
// ends are not measured.
struct LibraryRun {
    std::function<void(XModel&)> fill;
    std::function<std::string(const XModel&)> sumOf;
    // Brings a saved document to what a load of its file has to come to.
    std::function<void(XModel&)> settle = [](XModel&) {};

    Result Load(const char* path) const
    {
        XModel& model = *new XModel;
        const Measurement measurement;
        const XFileResult loaded = model.Load(path);
        Result result = measurement.Stop();
        if (loaded != FileOk)
            Fail("the library could not load the file");
        result.document = sumOf(model);
#ifdef BENCH_READS_BY_FROM_CHARS
        if (!NumberText::s_IsFromCharsReader)
            Fail("the reader does not use from_chars");
#endif
        return result;
    }

    Result Save(const char* path, bool asText) const
    {
        XModel& model = *new XModel;
        fill(model);
        if (!asText)
            model.GetSaveFlags().Clear(SaveAscii);
        std::filesystem::remove(path);
        const Measurement measurement;
        const XFileResult saved = model.Save(path);
        Result result = measurement.Stop();
        if (saved != FileOk)
            Fail("the library could not save the file");
        result.file = FileChecksum(path);
        settle(model);
        result.document = sumOf(model);
        return result;
    }

    // `operation` is load-text, load-binary, save-text or save-binary.
    void Measure(std::string_view operation, const char* path) const
    {
        StartLibrary();
        Result result = operation.starts_with("load-") ? Load(path) : Save(path, operation == "save-text");
        result.fileBytes = FileSize(path);
        Print(result);
    }
};

}  // namespace Bench
