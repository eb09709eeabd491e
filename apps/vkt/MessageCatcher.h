#pragma once

#include <string>
#include <vector>

#include "VKT/Logger.h"

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
        if (m_Messages.size() < mostKept)
            m_Messages.push_back({level, message});
    }
    const std::vector<Message>& Messages() const { return m_Messages; }
    // Empty when there is none.
    std::string First() const { return m_Messages.empty() ? std::string() : m_Messages.front().text; }

private:
    VKT::XLogger* m_Logger = VKT::GetLogger();
    std::vector<Message> m_Messages;
};

}  // namespace tool
