#pragma once

class IPoint2 {
public:
    int x, y;

    IPoint2() {}  // leaves the values unset
    IPoint2(int X, int Y) : x(X), y(Y) {}
};
