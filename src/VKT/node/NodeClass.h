#pragma once

#include "VKT/node/Base.h"
#include "VKT/node/PropertyTable.h"
#include "VKT/stream/FileIO.h"

namespace VKT {

// What a table function of a class answers when it is its own, and nothing when it is that of
// the base, whose business it is then.
template <auto Function, auto Inherited>
struct XOwnTable {
    static XBodyTable Get() { return Function(); }
};
template <auto Function>
struct XOwnTable<Function, Function> {
    static XBodyTable Get() { return {}; }
};
// Whether a class declares a function itself or inherits it.
template <auto Function, auto Inherited>
inline constexpr bool kIsOwn = true;
template <auto Function>
inline constexpr bool kIsOwn<Function, Function> = false;

// What a node class is made of: its id, its base, and its tables.
//
//     class XNonLinearWave : public XNodeClass<XNonLinearWave, XNonLinearDeformer,
//                                              kFnNonLinearWave> {
//     public:
//         using XNodeClass::XNodeClass;
//         static XBodyTable TextBody();
//         static XBodyTable BinaryBody();
//         static XPropertyTable Properties();
//
// From these follow `GetApiType`, both `HasFn`, `DoData` (and so `GetDataSize`),
// `DoCopy`, `WriteChunk`, `ReadChunk` and `GetNodeProperties`, each running the base
// class first. A table that a class does not declare adds nothing. A class overrides an
// operation for what tables can't say, and calls the one from here at its place; for
// reading text that is `ReadFields`.
//
// A class whose total of properties is not the sum of its rows declares it as
// `kNumProperties`.
//
// A class whose body was another one altogether in older files declares `OldTextBody`
// and `OldBinaryBody`, each a `BodyBelow` some version: they replace the chain up to and with
// this class while such a file is read. What derived classes store follows behind them as
// ever.
template <class Self, class Base, u32 Type>
class XNodeClass : public Base {
public:
    static constexpr u32 kType = Type;
    using XParent = Base;

    using Base::Base;

    u32 GetApiType() const override { return Type; }
    const XBase* HasFn(u32 type) const override { return type == Type ? this : Base::HasFn(type); }
    XBase* HasFn(u32 type) override { return type == Type ? this : Base::HasFn(type); }
    const XNodeProperties* GetNodeProperties() const override { return Self::ClassProperties(); }

    bool DoData(XFileIO& file) override
    {
        if (const XBodyTable old = OwnOldBinaryBody(); file.IsReading() && file.IsBelow(old.below))
            return XBase::DoData(file) && DoBinaryBody(*this, old, file);
        return Base::DoData(file) && DoOwnBinaryBody(file);
    }

    bool WriteChunk(XTextWriter& out) const override
    {
        return Base::WriteChunk(out) && WriteTextBody(*this, OwnTextBody(), out);
    }

    bool ReadFields(XTextReader& in) override
    {
        if (const XBodyTable old = OwnOldTextBody(); in.IsBelow(old.below))
            return ReadTextBody(*this, old, in);
        return Base::ReadFields(in) && ReadTextBody(*this, OwnTextBody(), in);
    }

    void DoCopy(const XBase* source) override
    {
        const Self* other = XCast<Self>(source);
        if (!other)
            return;
        Base::DoCopy(source);
        CopyBody(*this, *other, OwnBinaryBody());
    }

    // The tables that the class itself declares. An old body that it does not declare is below
    // version 0: no file has it.
    static XBodyTable OwnTextBody() { return XOwnTable<&Self::TextBody, &Base::TextBody>::Get(); }
    static XBodyTable OwnBinaryBody() { return XOwnTable<&Self::BinaryBody, &Base::BinaryBody>::Get(); }
    static XBodyTable OwnOldTextBody() { return XOwnTable<&Self::OldTextBody, &Base::OldTextBody>::Get(); }
    static XBodyTable OwnOldBinaryBody()
    {
        return XOwnTable<&Self::OldBinaryBody, &Base::OldBinaryBody>::Get();
    }

    static const XNodeProperties* ClassProperties()
    {
        if constexpr (!kIsOwn<&Self::Properties, &Base::Properties>) {
            return Base::ClassProperties();
        } else {
            static const XNodeProperties properties(Type, Self::Properties(), Base::ClassProperties(),
                                                    Total());
            return &properties;
        }
    }

protected:
    // The class's own rows alone, for a class that moves something between those of its base and
    // its own.
    bool DoOwnBinaryBody(XFileIO& file) { return DoBinaryBody(*this, OwnBinaryBody(), file); }

private:
    // What the class reports as the number of its properties; 0 for the sum of the rows.
    static constexpr u32 Total()
    {
        if constexpr (requires { Self::kNumProperties; })
            return Self::kNumProperties;
        else
            return 0;
    }
};

}  // namespace VKT
