#pragma once

#include <rttr/type>

#include <functional>
#include <map>
#include <string>

namespace ZOVEngine {

/// Shows one property of a component as a row and writes what the author makes of it back.
///
/// Runs between ImGui's NewFrame and Render, in the inspector's window. The value is the property's
/// present one; `instance` is the component itself.
using PropertyEditor = std::function<void(rttr::property property, const rttr::variant& value,
                                          const rttr::instance& instance)>;

/// The functions that show a property, by its metadata "DisplayMode".
extern std::map<std::string, PropertyEditor> g_display_modes;

/// The row of a property, by its metadata "typeinfo".
extern std::map<std::string, PropertyEditor> g_property_editors;

/// Calls the editor of the property's "typeinfo". One without an entry throws
/// std::bad_function_call.
void DisplayProperty(rttr::property property, const rttr::variant& value,
                     const rttr::instance& instance);

/// The rows: a label, and beside it the widget. A slider runs between the property's "min" and
/// "max"; without them between the bounds of an ordinary field. Every row writes its value back in
/// each frame, whether it changed or not.
void EditFloat(rttr::property property, const rttr::variant& value, const rttr::instance& instance);
void EditUnsigned(rttr::property property, const rttr::variant& value,
                  const rttr::instance& instance);
void EditInt(rttr::property property, const rttr::variant& value, const rttr::instance& instance);
void EditShort(rttr::property property, const rttr::variant& value, const rttr::instance& instance);
void EditSize(rttr::property property, const rttr::variant& value, const rttr::instance& instance);
void EditBool(rttr::property property, const rttr::variant& value, const rttr::instance& instance);
/// A text of up to 5,000 characters.
void EditString(rttr::property property, const rttr::variant& value,
                const rttr::instance& instance);
/// Three number fields; the row has four columns.
void EditVector3(rttr::property property, const rttr::variant& value,
                 const rttr::instance& instance);
/// For a type without a widget: ends the program with the report "Something Wrong".
void EditNone(rttr::property property, const rttr::variant& value, const rttr::instance& instance);

}  // namespace ZOVEngine
