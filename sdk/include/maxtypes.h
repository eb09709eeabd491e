#pragma once

#include <windows.h>

#include "coreexp.h"

#define MCHAR char

// Ticks: 4800 a second.
using TimeValue = int;
#define TIME_TICKSPERSEC 4800
#define TIME_PosInfinity TimeValue(0x7fffffff)
#define TIME_NegInfinity TimeValue(0x80000000)
#define TicksToSec(ticks) (float(ticks) / float(TIME_TICKSPERSEC))
#define SecToTicks(seconds) (TimeValue((seconds)*TIME_TICKSPERSEC))

using SClass_ID = ULONG;
using ParamID = short;
using BlockID = short;
using MapID = short;
using FunctionID = short;
using EnumID = short;
using StringResID = INT_PTR;
using MtlID = unsigned short;
using PartID = ULONG_PTR;
using RefMessage = unsigned int;
using ChannelMask = ULONG;

// The identity of a class: both parts count. Built-in classes have part B = 0.
class Class_ID {
public:
    Class_ID() = default;
    Class_ID(ULONG partA, ULONG partB) : a(partA), b(partB) {}

    ULONG PartA() const { return a; }
    ULONG PartB() const { return b; }
    int operator==(const Class_ID& other) const { return a == other.a && b == other.b; }
    int operator!=(const Class_ID& other) const { return !(*this == other); }
    bool operator<(const Class_ID& other) const { return a != other.a ? a < other.a : b < other.b; }

private:
    ULONG a = 0xffffffff;
    ULONG b = 0xffffffff;
};

class Interface_ID {
public:
    Interface_ID() = default;
    Interface_ID(ULONG partA, ULONG partB) : a(partA), b(partB) {}

    ULONG PartA() { return a; }
    ULONG PartB() { return b; }
    int operator==(const Interface_ID& other) const { return a == other.a && b == other.b; }
    int operator!=(const Interface_ID& other) const { return !(*this == other); }

private:
    ULONG a = 0xffffffff;
    ULONG b = 0xffffffff;
};
