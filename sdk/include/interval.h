#pragma once

#include "maxtypes.h"

// A closed range of time. Evaluations narrow one that is passed in, never widen it.
class CoreExport Interval {
public:
    Interval() = default;                // NEVER
    Interval(TimeValue s, TimeValue e);  // in either order

    TimeValue Start() const { return start; }
    TimeValue End() const { return end; }
    TimeValue Duration() const { return end - start + 1; }
    // Never true of TIME_NegInfinity.
    int InInterval(const TimeValue t) const { return t != TIME_NegInfinity && start <= t && t <= end; }
    int Empty() { return IsNever(); }  // not const, and == neither

    // As given: a start behind the end stays there.
    void Set(TimeValue s, TimeValue e)
    {
        start = s;
        end = e;
    }
    void SetStart(TimeValue s) { start = s; }
    void SetEnd(TimeValue e) { end = e; }
    void SetInstant(const TimeValue t) { start = end = t; }
    void SetInfinite()
    {
        start = TIME_NegInfinity;
        end = TIME_PosInfinity;
    }
    void SetEmpty() { start = end = TIME_NegInfinity; }

    int operator==(Interval other) { return start == other.start && end == other.end; }
    Interval operator&(const Interval other) const;
    Interval& operator&=(const Interval other) { return *this = *this & other; }

private:
    bool IsNever() const { return start == TIME_NegInfinity && end == TIME_NegInfinity; }

    TimeValue start = TIME_NegInfinity;
    TimeValue end = TIME_NegInfinity;
};

#define FOREVER Interval(TIME_NegInfinity, TIME_PosInfinity)
#define NEVER Interval(TIME_NegInfinity, TIME_NegInfinity)
