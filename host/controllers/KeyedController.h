#pragma once

#include <algorithm>
#include <vector>

#include "host/controllers/BezierCurve.h"
#include "istdplug.h"
#include "plugapi.h"

namespace maxhost {

// A leaf controller: a constant value until it has keys, then what they say; before
// the first and after the last key their values. Kind gives the types of key and
// value, how to interpolate, and what a relative reading does.
template <class Kind>
class KeyedController final : public Control, public IKeyControl {
public:
    using Key = typename Kind::Key;
    using Value = typename Kind::Value;

    KeyedController() = default;
    explicit KeyedController(const Value& value) : m_Value(value) {}

    SClass_ID SuperClassID() override { return Kind::kSuperClass; }
    Class_ID ClassID() override { return Kind::GetClassID(); }
    void GetClassName(MSTR& name) override { name = Kind::kName; }
    void* GetInterface(ULONG id) override
    {
        return id == I_KEYCONTROL ? static_cast<IKeyControl*>(this) : Control::GetInterface(id);
    }
    using Control::GetInterface;
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override
    {
        const Value value = Evaluate(t, valid);
        if (method == CTRL_ABSOLUTE)
            *static_cast<Value*>(val) = value;
        else
            Kind::Apply(val, value);
    }

    // Makes a key while animation is on, and one at 0 before the first other one. With
    // animation off, keys move along so that the curve goes through the value.
    void SetValue(TimeValue t, void* val, int, GetSetMethod method) override
    {
        Interval valid = FOREVER;
        const Value current = Evaluate(t, valid);
        const Value given = *static_cast<Value*>(val);
        const Value value = method == CTRL_ABSOLUTE ? given : Kind::Moved(current, given);
        if (m_Keys.empty() && (!Animating() || t == 0)) {
            m_Value = value;
        } else if (!Animating()) {
            for (Key& key : m_Keys)
                key.val = Kind::Shifted(key.val, current, value);
        } else {
            if (m_Keys.empty())
                PutKey(0, m_Value);
            PutKey(t, value);
        }
        Changed();
    }

    int GetNumKeys() override { return static_cast<int>(m_Keys.size()); }
    void SetNumKeys(int n) override
    {
        m_Keys.resize(static_cast<std::size_t>(std::max(n, 0)), FreshKey());
        m_Sorted = false;
        Changed();
    }
    void GetKey(int i, IKey* key) override { *static_cast<Key*>(key) = m_Keys[static_cast<std::size_t>(i)]; }
    void SetKey(int i, IKey* key) override
    {
        m_Keys[static_cast<std::size_t>(i)] = *static_cast<Key*>(key);
        m_Sorted = false;
        Changed();
    }
    int AppendKey(IKey* key) override
    {
        m_Keys.push_back(*static_cast<Key*>(key));
        m_Sorted = false;
        Changed();
        return GetNumKeys() - 1;
    }
    void SortKeys() override
    {
        if (!m_Sorted)
            std::stable_sort(m_Keys.begin(), m_Keys.end(),
                             [](const Key& a, const Key& b) { return a.time < b.time; });
        m_Sorted = true;
    }
    DWORD& GetTrackFlags() override { return m_TrackFlags; }
    int GetKeySize() override { return sizeof(Key); }

private:
    Value Evaluate(TimeValue t, Interval& valid)
    {
        if (m_Keys.empty())
            return m_Value;
        SortKeys();
        const auto right = std::upper_bound(m_Keys.begin(), m_Keys.end(), t,
                                            [](TimeValue time, const Key& key) { return time < key.time; });
        if (right == m_Keys.begin()) {
            valid &= Interval(TIME_NegInfinity, right->time);
            return right->val;
        }
        const auto left = right - 1;
        if (right == m_Keys.end()) {
            valid &= Interval(left->time, TIME_PosInfinity);
            return left->val;
        }
        valid &= Interval(t, t);
        return Kind::Between(left != m_Keys.begin() ? &*(left - 1) : nullptr, *left, *right,
                             right + 1 != m_Keys.end() ? &*(right + 1) : nullptr, t);
    }

    // The SDK's keys come with their values unset.
    static Key FreshKey()
    {
        Key key;
        key.val = Kind::Neutral();
        Kind::LevelTangents(key);
        return key;
    }

    void PutKey(TimeValue t, const Value& value)
    {
        SortKeys();
        auto place = std::lower_bound(m_Keys.begin(), m_Keys.end(), t,
                                      [](const Key& key, TimeValue time) { return key.time < time; });
        if (place == m_Keys.end() || place->time != t) {
            place = m_Keys.insert(place, FreshKey());
            place->time = t;
        }
        place->val = value;
    }

    void Changed() { NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE); }

    std::vector<Key> m_Keys;
    Value m_Value = Kind::Neutral();
    DWORD m_TrackFlags = 0;
    bool m_Sorted = true;
};

// No slope, and handles of a third of the segment.
template <class Key, class Value>
void LevelTangents(Key& key, const Value& one)
{
    key.intan = key.outtan = one * 0.0f;
    key.inLength = key.outLength = one / 3.0f;
}

// Straight lines between keys.
struct LinearFloatKind {
    using Key = ILinFloatKey;
    using Value = float;
    static constexpr SClass_ID kSuperClass = CTRL_FLOAT_CLASS_ID;
    static constexpr const char* kName = "Linear Float";
    static Class_ID GetClassID() { return Class_ID(LININTERP_FLOAT_CLASS_ID, 0); }
    static float Neutral() { return 0.0f; }
    static void LevelTangents(Key&) {}  // it has none
    static void Apply(void* val, float value) { *static_cast<float*>(val) += value; }
    static float Moved(float value, float by) { return value + by; }
    static float Shifted(float value, float from, float to) { return value + (to - from); }
    static float Between(const Key* before, const Key& left, const Key& right, const Key* after, TimeValue t);
};

struct BezierFloatKind {
    using Key = IBezFloatKey;
    using Value = float;
    static constexpr SClass_ID kSuperClass = CTRL_FLOAT_CLASS_ID;
    static constexpr const char* kName = "Bezier Float";
    static Class_ID GetClassID() { return Class_ID(HYBRIDINTERP_FLOAT_CLASS_ID, 0); }
    static float Neutral() { return 0.0f; }
    static void LevelTangents(Key& key) { maxhost::LevelTangents(key, 1.0f); }
    static void Apply(void* val, float value) { *static_cast<float*>(val) += value; }
    static float Moved(float value, float by) { return value + by; }
    static float Shifted(float value, float from, float to) { return value + (to - from); }
    static float Between(const Key* before, const Key& left, const Key& right, const Key* after, TimeValue t);
};

// A position whose three components share their keys.
struct BezierPositionKind {
    using Key = IBezPoint3Key;
    using Value = Point3;
    static constexpr SClass_ID kSuperClass = CTRL_POSITION_CLASS_ID;
    static constexpr const char* kName = "Bezier Position";
    static Class_ID GetClassID() { return Class_ID(HYBRIDINTERP_POSITION_CLASS_ID, 0); }
    static Point3 Neutral() { return Point3(0, 0, 0); }
    static void LevelTangents(Key& key) { maxhost::LevelTangents(key, Point3(1, 1, 1)); }
    static Point3 Moved(const Point3& value, const Point3& by) { return value + by; }
    static void Apply(void* val, const Point3& value) { static_cast<Matrix3*>(val)->PreTranslate(value); }
    static Point3 Shifted(const Point3& value, const Point3& from, const Point3& to)
    {
        return value + (to - from);
    }
    static Point3 Between(const Key* before, const Key& left, const Key& right, const Key* after,
                          TimeValue t);
};

// A scale along axes of its own; the axes turn on the shorter way.
struct BezierScaleKind {
    using Key = IBezScaleKey;
    using Value = ScaleValue;
    static constexpr SClass_ID kSuperClass = CTRL_SCALE_CLASS_ID;
    static constexpr const char* kName = "Bezier Scale";
    static Class_ID GetClassID() { return Class_ID(HYBRIDINTERP_SCALE_CLASS_ID, 0); }
    static ScaleValue Neutral() { return ScaleValue(Point3(1, 1, 1)); }
    static void LevelTangents(Key& key) { maxhost::LevelTangents(key, Point3(1, 1, 1)); }
    static ScaleValue Moved(const ScaleValue& value, const ScaleValue& by)
    {
        return ScaleValue(value.s * by.s, value.q);
    }
    static void Apply(void* val, const ScaleValue& value)
    {
        ApplyScaling(*static_cast<Matrix3*>(val), value);
    }
    // A scale moves by factors; the axes are those of the target.
    static ScaleValue Shifted(const ScaleValue& value, const ScaleValue& from, const ScaleValue& to);
    static ScaleValue Between(const Key* before, const Key& left, const Key& right, const Key* after,
                              TimeValue t);
};

using LinearFloat = KeyedController<LinearFloatKind>;
using BezierFloat = KeyedController<BezierFloatKind>;
using BezierPosition = KeyedController<BezierPositionKind>;
using BezierScale = KeyedController<BezierScaleKind>;

}  // namespace maxhost
