// Published properties: each published class describes its properties once,
// in a table of name, kind and accessors. The host walks the table to load
// and save projects, to describe an action and to offer properties to scripts.
#pragma once

#include <array>
#include <cstdint>
#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "rtl/datetime.h"
#include "rtl/stringlist.h"

namespace jx {

class TQSXMLObject;

enum class TPropertyKind {
  pkString,      // narrow string
  pkWideString,
  pkBoolean,
  pkWordBool,    // 16-bit boolean
  pkByteBool,
  pkInteger,     // 32-bit signed
  pkCardinal,    // 32-bit unsigned
  pkInt64,
  pkFloat,
  pkDateTime,
  pkEnumeration,
  pkSet,         // set of an enumeration, as "[a,b]"
  pkStringList,
};
const char* PropertyKindName(TPropertyKind kind);  // "String", "WideString", "Boolean", ...

// An enumeration's values in declaration order, with optional captions that
// the host shows and also accepts when it reads a value.
struct TEnumTypeInfo {
  std::string TypeName;
  std::vector<std::string> Names;
  std::vector<std::string> Captions;  // empty, or one per name

  std::string NameOf(int ordinal) const;
  // Ordinal of a value name or caption (case-insensitive), or -1.
  int OrdinalOf(std::string_view text) const;
};

// The type info of an enumeration whose last value is `Last`, with one name
// (and, when given, one caption) per value; a table that misses or adds a
// value does not compile:
//   EnumTypeInfo<feIgnore>("TFileExistsMode", {"feFailIfExists", "feFailIfMissing", "feIgnore"})
template <auto Last, size_t N>
TEnumTypeInfo EnumTypeInfo(const char* type_name, const char* const (&names)[N]) {
  static_assert(N == static_cast<size_t>(Last) + 1, "one name per value of the enumeration");
  return TEnumTypeInfo{type_name, {names, names + N}, {}};
}
template <auto Last, size_t N, size_t M>
TEnumTypeInfo EnumTypeInfo(const char* type_name, const char* const (&names)[N],
                           const std::array<const char*, M>& captions) {
  static_assert(N == static_cast<size_t>(Last) + 1, "one name per value of the enumeration");
  static_assert(M == N, "one caption per value of the enumeration");
  return TEnumTypeInfo{type_name, {names, names + N}, {captions.begin(), captions.end()}};
}

// Sets of an enumeration are bit masks: bit N is ordinal N.
template <class E>
constexpr uint32_t SetOf(std::initializer_list<E> values) {
  uint32_t bits = 0;
  for (E v : values) bits |= 1u << static_cast<unsigned>(v);
  return bits;
}
template <class E>
constexpr bool InSet(uint32_t set, E value) {
  return (set >> static_cast<unsigned>(value)) & 1u;
}

// "[a,b]" for the bits of a set; ParseSet throws EConvertError on an unknown name.
std::string SetToText(uint32_t bits, const TEnumTypeInfo& type);
uint32_t ParseSet(std::string_view text, const TEnumTypeInfo& type);

struct TPropertyInfo {
  std::string Name;
  TPropertyKind Kind = TPropertyKind::pkString;
  const TEnumTypeInfo* EnumType = nullptr;  // enumeration and set
  bool Stored = true;                       // saved with the project
  bool ReadOnly = false;                    // no setter: a run result
  bool WriteOnly = false;                   // no getter (GetText is empty) and not stored
  // Value as the project file writes it; the setter throws EConvertError on bad text.
  std::function<std::string(const TQSXMLObject&)> GetText;
  std::function<void(TQSXMLObject&, std::string_view)> SetText;
  // String lists only: the live list.
  std::function<TStrings&(TQSXMLObject&)> List;
};

// Text forms of property values, shared by the table and the host.
std::string PropertyValueToText(bool value);
std::string PropertyValueToText(int32_t value);
std::string PropertyValueToText(uint32_t value);
std::string PropertyValueToText(int64_t value);
std::string PropertyValueToText(double value);
void PropertyValueFromText(std::string_view text, bool& value);
void PropertyValueFromText(std::string_view text, int32_t& value);
void PropertyValueFromText(std::string_view text, uint32_t& value);
void PropertyValueFromText(std::string_view text, int64_t& value);
void PropertyValueFromText(std::string_view text, double& value);
std::string DateTimePropertyToText(TDateTime value);
TDateTime DateTimePropertyFromText(std::string_view text);

// A published property bound straight to a data member, for a value that
// needs no rule when it is set: the table reads and writes the member itself.
template <class F>
concept PublishedField = std::is_member_object_pointer_v<F>;

// Builds the property table of class C from its members: a getter and a
// setter, or the one data member that holds the value, e.g.
//   TPublished<TDeleteFilesAction>()
//       .String("FileSpec", &C::FileSpec, &C::SetFileSpec)
//       .WordBool("DeleteHidden", &C::DeleteHidden)
template <class C>
class TPublished {
 public:
  template <class G, class S>
  TPublished& String(const char* name, G get, S set) { return Text(name, TPropertyKind::pkString, get, set); }
  template <class G, class S>
  TPublished& WideString(const char* name, G get, S set) { return Text(name, TPropertyKind::pkWideString, get, set); }
  template <class G, class S>
  TPublished& Boolean(const char* name, G get, S set) { return Value<bool>(name, TPropertyKind::pkBoolean, get, set); }
  template <class G, class S>
  TPublished& WordBool(const char* name, G get, S set) { return Value<bool>(name, TPropertyKind::pkWordBool, get, set); }
  template <class G, class S>
  TPublished& ByteBool(const char* name, G get, S set) { return Value<bool>(name, TPropertyKind::pkByteBool, get, set); }
  template <class G, class S>
  TPublished& Integer(const char* name, G get, S set) { return Value<int32_t>(name, TPropertyKind::pkInteger, get, set); }
  template <class G, class S>
  TPublished& Cardinal(const char* name, G get, S set) { return Value<uint32_t>(name, TPropertyKind::pkCardinal, get, set); }
  template <class G, class S>
  TPublished& Int64(const char* name, G get, S set) { return Value<int64_t>(name, TPropertyKind::pkInt64, get, set); }
  template <class G, class S>
  TPublished& Float(const char* name, G get, S set) { return Value<double>(name, TPropertyKind::pkFloat, get, set); }

  // The same, bound to a data member.
  TPublished& String(const char* name, PublishedField auto field) { return String(name, field, field); }
  TPublished& WideString(const char* name, PublishedField auto field) { return WideString(name, field, field); }
  TPublished& Boolean(const char* name, PublishedField auto field) { return Boolean(name, field, field); }
  TPublished& WordBool(const char* name, PublishedField auto field) { return WordBool(name, field, field); }
  TPublished& ByteBool(const char* name, PublishedField auto field) { return ByteBool(name, field, field); }
  TPublished& Integer(const char* name, PublishedField auto field) { return Integer(name, field, field); }
  TPublished& Cardinal(const char* name, PublishedField auto field) { return Cardinal(name, field, field); }
  TPublished& Int64(const char* name, PublishedField auto field) { return Int64(name, field, field); }
  TPublished& Float(const char* name, PublishedField auto field) { return Float(name, field, field); }
  TPublished& DateTime(const char* name, PublishedField auto field) { return DateTime(name, field, field); }
  TPublished& Enumeration(const char* name, const TEnumTypeInfo& type, PublishedField auto field) {
    return Enumeration(name, type, field, field);
  }
  TPublished& Set(const char* name, const TEnumTypeInfo& type, PublishedField auto field) {
    return Set(name, type, field, field);
  }

  // Read-only (run result) variants: no setter.
  template <class G>
  TPublished& IntegerResult(const char* name, G get) {
    return Value<int32_t>(name, TPropertyKind::pkInteger, get, static_cast<void (C::*)(int32_t)>(nullptr));
  }
  template <class G>
  TPublished& StringResult(const char* name, G get) {
    return Text(name, TPropertyKind::pkString, get, static_cast<void (C::*)(const std::string&)>(nullptr));
  }

  // A write-only boolean that older projects may still set: no getter, not stored.
  template <class S>
  TPublished& BooleanWriteOnly(const char* name, S set) {
    TPropertyInfo p = Base(name, TPropertyKind::pkBoolean);
    p.WriteOnly = true;
    p.Stored = false;
    p.SetText = [set](TQSXMLObject& o, std::string_view t) {
      bool v = false;
      PropertyValueFromText(t, v);
      Write(o, set, v);
    };
    return Push(std::move(p));
  }

  template <class G, class S>
  TPublished& DateTime(const char* name, G get, S set) {
    TPropertyInfo p = Base(name, TPropertyKind::pkDateTime);
    p.GetText = [get](const TQSXMLObject& o) { return DateTimePropertyToText(Read(o, get)); };
    p.SetText = [set](TQSXMLObject& o, std::string_view t) { Write(o, set, DateTimePropertyFromText(t)); };
    return Push(std::move(p));
  }

  template <class G, class S>
  TPublished& Enumeration(const char* name, const TEnumTypeInfo& type, G get, S set) {
    TPropertyInfo p = Base(name, TPropertyKind::pkEnumeration);
    p.EnumType = &type;
    p.GetText = [get, &type](const TQSXMLObject& o) { return type.NameOf(static_cast<int>(Read(o, get))); };
    p.SetText = [set, &type, name](TQSXMLObject& o, std::string_view t) {
      using E = typename ValueOf<S>::type;
      Write(o, set, static_cast<E>(EnumOrdinal(type, t, name)));
    };
    return Push(std::move(p));
  }

  template <class G, class S>
  TPublished& Set(const char* name, const TEnumTypeInfo& type, G get, S set) {
    TPropertyInfo p = Base(name, TPropertyKind::pkSet);
    p.EnumType = &type;
    p.GetText = [get, &type](const TQSXMLObject& o) { return SetToText(Read(o, get), type); };
    p.SetText = [set, &type](TQSXMLObject& o, std::string_view t) { Write(o, set, ParseSet(t, type)); };
    return Push(std::move(p));
  }

  // A string list property: a getter of the live list (TStrings&), or the
  // list member itself.
  template <class L>
  TPublished& StringList(const char* name, L list) {
    TPropertyInfo p = Base(name, TPropertyKind::pkStringList);
    p.List = [list](TQSXMLObject& o) -> TStrings& { return std::invoke(list, Self(o)); };
    p.GetText = [list](const TQSXMLObject& o) {
      return std::invoke(list, Self(const_cast<TQSXMLObject&>(o))).GetText();
    };
    p.SetText = [list](TQSXMLObject& o, std::string_view t) { std::invoke(list, Self(o)).SetText(t); };
    return Push(std::move(p));
  }

  // Marks the last property as not saved with the project.
  TPublished& NotStored() {
    props_.back().Stored = false;
    return *this;
  }

  std::vector<TPropertyInfo> Build() { return std::move(props_); }

 private:
  // The type of value a setter takes or a data member holds.
  template <class S>
  struct ValueOf;
  template <class R, class K, class A>
  struct ValueOf<R (K::*)(A)> {
    using type = std::decay_t<A>;
  };
  template <class F, class K>
  struct ValueOf<F K::*> {
    using type = F;
  };

  static C& Self(TQSXMLObject& o) { return static_cast<C&>(o); }
  static const C& Self(const TQSXMLObject& o) { return static_cast<const C&>(o); }

  // Through the getter, or straight from the data member.
  template <class G>
  static decltype(auto) Read(const TQSXMLObject& o, G get) {
    return std::invoke(get, Self(o));
  }
  // Through the setter, or straight into the data member.
  template <class S, class V>
  static void Write(TQSXMLObject& o, S set, V&& value) {
    if constexpr (std::is_member_object_pointer_v<S>) {
      Self(o).*set = std::forward<V>(value);
    } else {
      (Self(o).*set)(std::forward<V>(value));
    }
  }
  static int EnumOrdinal(const TEnumTypeInfo& type, std::string_view text, const char* name);

  static TPropertyInfo Base(const char* name, TPropertyKind kind) {
    TPropertyInfo p;
    p.Name = name;
    p.Kind = kind;
    return p;
  }

  TPublished& Push(TPropertyInfo p) {
    props_.push_back(std::move(p));
    return *this;
  }

  template <class G, class S>
  TPublished& Text(const char* name, TPropertyKind kind, G get, S set) {
    TPropertyInfo p = Base(name, kind);
    p.GetText = [get](const TQSXMLObject& o) { return std::string(Read(o, get)); };
    if (set) {
      p.SetText = [set](TQSXMLObject& o, std::string_view t) { Write(o, set, std::string(t)); };
    } else {
      p.ReadOnly = true;
    }
    return Push(std::move(p));
  }

  template <class T, class G, class S>
  TPublished& Value(const char* name, TPropertyKind kind, G get, S set) {
    TPropertyInfo p = Base(name, kind);
    p.GetText = [get](const TQSXMLObject& o) { return PropertyValueToText(static_cast<T>(Read(o, get))); };
    if (set) {
      p.SetText = [set](TQSXMLObject& o, std::string_view t) {
        T v{};
        PropertyValueFromText(t, v);
        Write(o, set, v);
      };
    } else {
      p.ReadOnly = true;
    }
    return Push(std::move(p));
  }

  std::vector<TPropertyInfo> props_;
};

// Throws EConvertError naming the property when `text` is no value of `type`.
int EnumOrdinalOrThrow(const TEnumTypeInfo& type, std::string_view text, const std::string& property);

template <class C>
int TPublished<C>::EnumOrdinal(const TEnumTypeInfo& type, std::string_view text, const char* name) {
  return EnumOrdinalOrThrow(type, text, name);
}

}  // namespace jx
