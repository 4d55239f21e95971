// Glib: owners of objects of GLib and GMime.
#pragma once

#include <glib-object.h>
#include <memory>
#include <string>

namespace platform::detail {

/// A text that GLib allocated.
using GText = std::unique_ptr<char, decltype(&g_free)>;
[[nodiscard]] inline GText OwnText(char* text) noexcept { return {text, &g_free}; }
[[nodiscard]] inline std::string TakeText(char* text) {
    GText const owned = OwnText(text);
    return text == nullptr ? "" : text;
}
[[nodiscard]] inline std::string TextOrEmpty(char const* text) { return text == nullptr ? "" : text; }

/// A reference to an object of GLib's.
template <class Object>
using GOwned = std::unique_ptr<Object, decltype(&g_object_unref)>;
template <class Object>
[[nodiscard]] GOwned<Object> OwnObject(Object* object) noexcept {
    return {object, &g_object_unref};
}

}  // namespace platform::detail
