#pragma once

#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

// What tests of `vkt validate` share: small documents in, lines of findings out.
class ValidateTest : public ToolTest {
protected:
    // What `vkt validate` prints about a file of these bytes. The exit status must tell
    // whether there is an error among it.
    std::string FindingsIn(const std::string& bytes)
    {
        WriteFile("scene.vkt", bytes);
        const ToolResult result = Run({"validate", "scene.vkt"});
        EXPECT_EQ(result.status, ("\n" + result.out).find("\nerror: ") == std::string::npos ? 0 : 1)
            << result.out << result.err;
        return result.out;
    }
    // The binary form of a text document.
    std::string Binary(const std::string& text)
    {
        WriteFile("text.vkt", text);
        EXPECT_EQ(Run({"convert", "text.vkt", "binary.vkt", "--binary"}).status, 0);
        return ReadFile("binary.vkt");
    }
};

// Numbers as a binary file holds them.
inline std::string Word(unsigned number)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 255);
    return bytes;
}
