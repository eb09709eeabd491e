#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <sstream>
#include <string>

#include "VKT/stream/TextReader.h"

// Every way to read the same characters: from memory, and through windows of all sizes
// that make tokens fall apart in every place.
inline void WithEachReader(const std::string& text, const std::function<void(VKT::XTextReader&)>& check)
{
    {
        SCOPED_TRACE("memory");
        VKT::XTextReader in{std::string_view(text)};
        check(in);
    }
    for (const std::size_t window : {1, 2, 3, 5, 8, 13, 64, 200}) {
        SCOPED_TRACE("window of " + std::to_string(window));
        std::istringstream stream(text);
        VKT::XTextReader in(stream, window);
        check(in);
    }
    SCOPED_TRACE("file");
    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::fwrite(text.data(), 1, text.size(), file);
    std::rewind(file);
    {
        VKT::XTextReader in(file);
        check(in);
    }
    std::fclose(file);
}
