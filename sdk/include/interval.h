#pragma once

#include "maxtypes.h"

// A closed range of time. Evaluations narrow one that is passed in, never widen it.
class CoreExport Interval {
public:
    Interval() = default;  // NEVER
    Interval(TimeValue s, TimeValue e) { Set(s, e); }

    TimeValue Start() const { return start; }
    TimeValue End() const { return end; }
    TimeValue Duration() const { return end - start + 1; }
    int InInterval(const TimeValue t) const { return !Empty() && start <= t && t <= end; }
    int Empty() const { return start == TIME_NegInfinity && end == TIME_NegInfinity; }

    // In either order.
    void Set(TimeValue s, TimeValue e);
    void SetStart(TimeValue s) { start = s; }
    void SetEnd(TimeValue e) { end = e; }
    void SetInstant(const TimeValue t) { start = end = t; }
    void SetInfinite()
    {
        start = TIME_NegInfinity;
        end = TIME_PosInfinity;
    }
    void SetEmpty() { start = end = TIME_NegInfinity; }

    int operator==(const Interval& other) const { return start == other.start && end == other.end; }
    Interval operator&(const Interval other) const;
    Interval& operator&=(const Interval other) { return *this = *this & other; }

private:
    TimeValue start = TIME_NegInfinity;
    TimeValue end = TIME_NegInfinity;
};

#define FOREVER Interval(TIME_NegInfinity, TIME_PosInfinity)
#define NEVER Interval(TIME_NegInfinity, TIME_NegInfinity)
