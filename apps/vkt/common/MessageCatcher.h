#pragma once

#include <string>
#include <vector>

#include "VKT/base/Logger.h"

namespace tool {

// Keeps the library's messages to itself as long as it lives, up to a hundred of them.
class MessageCatcher final : public VKT::XLogger {
public:
    struct Message {
        VKT::XLogLevel level;
        std::string text;
    };

    MessageCatcher() { VKT::SetLogger(this); }
    ~MessageCatcher() override { VKT::SetLogger(m_Logger); }
    MessageCatcher(const MessageCatcher&) = delete;
    MessageCatcher& operator=(const MessageCatcher&) = delete;

    void LogString(VKT::XLogLevel level, const VKT::XString& message) override
    {
        constexpr std::size_t mostKept = 100;
        if (level == VKT::kError && m_FirstError.empty())
            m_FirstError = message;
        if (m_Messages.size() < mostKept)
            m_Messages.push_back({level, message});
    }
    const std::vector<Message>& Messages() const { return m_Messages; }
    // Empty when there was none.
    const std::string& FirstError() const { return m_FirstError; }

private:
    VKT::XLogger* m_Logger = VKT::GetLogger();
    std::vector<Message> m_Messages;
    std::string m_FirstError;
};

}  // namespace tool
