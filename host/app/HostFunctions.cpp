// The free functions of the SDK that ask the running host.

#include <algorithm>
#include <cstring>

#include "host/app/HeadlessHost.h"
#include "host/app/ModuleFile.h"
#include "host/core/Scene.h"
#include "plugapi.h"
#include "units.h"

using maxhost::HeadlessHost;

Interface* GetCOREInterface()
{
    return &HeadlessHost::Get().GetInterface();
}

int Animating()
{
    return HeadlessHost::Get().GetScene().IsAnimating();
}

void AnimateOn()
{
    HeadlessHost::Get().GetScene().SetAnimate(true);
}

void AnimateOff()
{
    HeadlessHost::Get().GetScene().SetAnimate(false);
}

void SuspendAnimate()
{
    HeadlessHost::Get().GetScene().SuspendAnimate();
}

void ResumeAnimate()
{
    HeadlessHost::Get().GetScene().ResumeAnimate();
}

int GetFrameRate()
{
    return TIME_TICKSPERSEC / GetTicksPerFrame();
}

void SetFrameRate(int rate)
{
    SetTicksPerFrame(TIME_TICKSPERSEC / std::max(rate, 1));
}

int GetTicksPerFrame()
{
    return HeadlessHost::Get().GetScene().GetTicksPerFrame();
}

void SetTicksPerFrame(int ticks)
{
    HeadlessHost::Get().GetScene().SetTicksPerFrame(ticks);
}

MCHAR* ClassDesc::GetRsrcString(INT_PTR id)
{
    static char text[256];
    if (LoadString(HInstance(), static_cast<UINT>(id), text, sizeof text) <= 0)
        text[0] = '\0';
    return text;
}

#ifndef _WIN32

int LoadString(HINSTANCE module, UINT id, LPSTR buffer, int size)
{
    using StringFunction = const char*(unsigned int);
    const auto find =
        reinterpret_cast<StringFunction*>(maxhost::ModuleFile::FindSymbol(module, "ModuleString"));
    const char* text = find ? find(id) : nullptr;
    if (!text || size <= 0)
        return 0;
    const std::size_t length = std::min(std::strlen(text), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, text, length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}

void OutputDebugString(LPCSTR text)
{
    HeadlessHost::Get().WriteDebugText(text);
}

HWND GetActiveWindow()
{
    return nullptr;
}

#endif
