// Text: the translated texts of the application, read from ".lng" files. A text is identified by the number
// of its group and its own number within the group. The state is static; use it in the main thread only.
//
// A file contains groups, "{name}", each followed by its entries, one per line, "[text]", numbered from 0.
// The text extends from the first "[" to the last "]" of the line, so it may contain brackets. "//" and "/*
// */" are comments, in an entry too; "//" includes the line end, so it continues an entry in the next line.
// Everything else is ignored. The last line must end with a line end. Several files form one table.
//
// The bytes of a file are the application's texts as they are, in the suite's code page: Windows-1252, or
// that of the language for Japanese and Chinese. They are not UTF-8.
#pragma once

#include "SV/core/String.h"

namespace kv {

class Text {
  public:
    Text() = delete;

    /// Adds the texts of the file of this name. Errors are shown in boxes, in German if the message language
    /// is 49, otherwise in English. A file with an error adds no texts, but its groups stay counted, which
    /// shifts the texts of files loaded later: call `FreeResources` and load again.
    ///
    /// At most 199 groups load without an error.
    static void LoadText(sv::String const& name);
    /// Sets the message language to `language`, a country code, and adds the file `name` + `language` +
    /// ".lng".
    static void LoadText(sv::String const& name, int language);

    /// Returns the text, or an empty one if there is none. A number past the end of the group reads on into
    /// the groups that follow.
    [[nodiscard]] static sv::String GetText(unsigned group, unsigned long index);
    /// Returns the number of texts of a group; 0 if there is no such group, and for the last group of a file
    /// whose last entry has no line end.
    [[nodiscard]] static unsigned long GetEntryCount(unsigned group);
    /// Returns the number of the first group of exactly this name, or -1 as unsigned.
    [[nodiscard]] static unsigned GetGroupNr(sv::String const& name);

    /// Converts a text that is about to be stored or shown: returns it unchanged.
    [[nodiscard]] static sv::String ConvertText(sv::String const& text) { return text; }

    /// Clears all texts and groups, and sets the message language to English.
    static void FreeResources();
};

}  // namespace kv
