#pragma once

#include "VKT/node/Base.h"
#include "VKT/node/PropertyTable.h"
#include "VKT/stream/FileIO.h"

namespace VKT {

// Whether two functions are one: whether a class has a table of its own or inherits it.
template <auto First, auto Second>
inline constexpr bool kIsSame = false;
template <auto Function>
inline constexpr bool kIsSame<Function, Function> = true;

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

    using Base::Base;

    u32 GetApiType() const override { return Type; }
    const XBase* HasFn(u32 type) const override { return type == Type ? this : Base::HasFn(type); }
    XBase* HasFn(u32 type) override { return type == Type ? this : Base::HasFn(type); }
    const XNodeProperties* GetNodeProperties() const override { return Self::ClassProperties(); }

    static const XNodeProperties* ClassProperties()
    {
        if constexpr (kIsSame<&Self::Properties, &Base::Properties>) {
            return Base::ClassProperties();
        } else {
            static const XNodeProperties properties(Type, Self::Properties(), Base::ClassProperties(),
                                                    Total());
            return &properties;
        }
    }

    bool DoData(XFileIO& file) override
    {
        if constexpr (HasOldBinaryBody())
            if (const XBodyTable old = Self::OldBinaryBody(); file.IsReading() && file.IsBelow(old.below))
                return XBase::DoData(file) && DoBinaryBody(*this, old, file);
        return Base::DoData(file) && DoOwnBinaryBody(file);
    }

    bool WriteChunk(XTextWriter& out) const override
    {
        return Base::WriteChunk(out) && WriteOwnTextBody(out);
    }

    bool ReadChunk(XTextReader& in) override
    {
        return static_cast<Self*>(this)->Self::ReadFields(in) && in.IsGood();
    }

    bool ReadFields(XTextReader& in)
    {
        if constexpr (HasOldTextBody())
            if (const XBodyTable old = Self::OldTextBody(); in.IsBelow(old.below))
                return ReadTextBody(*this, old, in);
        return Base::ReadFields(in) && ReadOwnTextBody(in);
    }

    void DoCopy(const XBase* source) override
    {
        const Self* other = XCast<Self>(source);
        if (!other)
            return;
        Base::DoCopy(source);
        if constexpr (!kIsSame<&Self::BinaryBody, &Base::BinaryBody>)
            CopyBody(*this, *other, Self::BinaryBody());
    }

    // The tables that the class itself declares, for `XClassTables`.
    using XParent = Base;
    static XBodyTable OwnTextBody()
    {
        if constexpr (!kIsSame<&Self::TextBody, &Base::TextBody>)
            return Self::TextBody();
        else
            return {};
    }
    static XBodyTable OwnBinaryBody()
    {
        if constexpr (!kIsSame<&Self::BinaryBody, &Base::BinaryBody>)
            return Self::BinaryBody();
        else
            return {};
    }
    static XBodyTable OwnOldTextBody()
    {
        if constexpr (HasOldTextBody())
            return Self::OldTextBody();
        else
            return {};
    }
    static XBodyTable OwnOldBinaryBody()
    {
        if constexpr (HasOldBinaryBody())
            return Self::OldBinaryBody();
        else
            return {};
    }

private:
    // What the class reports as the number of its properties; 0 for the sum of the rows.
    static constexpr u32 Total()
    {
        if constexpr (requires { Self::kNumProperties; })
            return Self::kNumProperties;
        else
            return 0;
    }

protected:
    // The class's own tables alone.
    bool DoOwnBinaryBody(XFileIO& file)
    {
        if constexpr (!kIsSame<&Self::BinaryBody, &Base::BinaryBody>)
            return DoBinaryBody(*this, Self::BinaryBody(), file);
        else
            return true;
    }
    bool WriteOwnTextBody(XTextWriter& out) const
    {
        if constexpr (!kIsSame<&Self::TextBody, &Base::TextBody>)
            return WriteTextBody(*this, Self::TextBody(), out);
        else
            return true;
    }
    bool ReadOwnTextBody(XTextReader& in)
    {
        if constexpr (!kIsSame<&Self::TextBody, &Base::TextBody>)
            return ReadTextBody(*this, Self::TextBody(), in);
        else
            return true;
    }

private:
    // Whether the class itself declares an old body; one that it inherits is its base's
    // business.
    static constexpr bool HasOldBinaryBody()
    {
        if constexpr (requires { Base::OldBinaryBody(); })
            return !kIsSame<&Self::OldBinaryBody, &Base::OldBinaryBody>;
        else
            return requires
            {
                Self::OldBinaryBody();
            };
    }
    static constexpr bool HasOldTextBody()
    {
        if constexpr (requires { Base::OldTextBody(); })
            return !kIsSame<&Self::OldTextBody, &Base::OldTextBody>;
        else
            return requires
            {
                Self::OldTextBody();
            };
    }
};

}  // namespace VKT
