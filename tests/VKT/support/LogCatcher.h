#pragma once

#include "VKT/base/Logger.h"

// Takes what is logged while it lives, and puts the logger back that was there before.
class LogCatcher final : public VKT::XLogger {
public:
    LogCatcher() : m_Previous(VKT::GetLogger()) { VKT::SetLogger(this); }
    ~LogCatcher() override { VKT::SetLogger(m_Previous); }
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;

    void LogString(VKT::XLogLevel level, const VKT::XString& message) override
    {
        m_Text += VKT::GetLogPrefix(level) + message + "\n";
    }

    // One line for each message, its prefix in front: "Error : corrupt file\n".
    const VKT::XString& Text() const { return m_Text; }
    void Clear() { m_Text.clear(); }

private:
    VKT::XLogger* m_Previous;
    VKT::XString m_Text;
};
