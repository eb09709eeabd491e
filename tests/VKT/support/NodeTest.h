#pragma once

#include <gtest/gtest.h>

#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT::Test {

// A document with the types of the library, for tests of node classes.
class NodeTest : public testing::Test {
protected:
    // Empties the document and leaves it as the load of a file of version 3 does, so
    // that nodes read the bodies of then.
    void MakeOlder()
    {
        const LogCatcher ignored;
        ASSERT_EQ(LoadText(m_Model, "|VKT_003A#0000#00000000|\n"), FileOk);
        ASSERT_EQ(m_Model.GetVersion(), 3u);
    }

private:
    RegistryScope m_Registry;

protected:
    XModel m_Model;
    LogCatcher m_Log;
};

// `text` with the first occurrence of `what` replaced; a test that names something that
// is not there fails.
inline std::string Replaced(std::string text, std::string_view what, std::string_view with)
{
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

}  // namespace VKT::Test
