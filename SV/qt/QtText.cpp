#include "SV/qt/QtText.h"

#include "SV/core/detail/CodePages.h"
#include "SV/core/detail/Encoding.h"
#include "SV/core/detail/TextPage.h"

#include <QList>
#include <QStringDecoder>
#include <QStringEncoder>
#include <string>
#include <string_view>

namespace sv::qt {

namespace {

/// Returns the name of a code page of two bytes per character; null for the Western one.
char const* NameOf(TextPage page) noexcept {
    switch (page) {
        case TextPage::Japanese:
            return "ibm-943_P15A-2003";  // 932 with Windows' own extensions; keeps the backslash
        case TextPage::Chinese:
            return "windows-936";
        case TextPage::Western:
            break;
    }
    return nullptr;
}

QString FromWestern(std::string_view text) {
    std::u32string const points = detail::FromSingleByte(text, detail::Windows1252);
    return QString::fromUcs4(points.data(), static_cast<qsizetype>(points.size()));
}

String ToWestern(QString const& text) {
    QList<uint> const points = text.toUcs4();
    return detail::ToSingleByte(std::u32string(points.begin(), points.end()), detail::Windows1252);
}

}  // namespace

QString ToQt(String const& text) {
    std::string_view const bytes = text.View();
    if (detail::IsAscii(bytes))
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (char const* const name = NameOf(GetTextPage())) {
        QStringDecoder decoder(name, QStringConverter::Flag::Stateless);
        if (decoder.isValid()) return decoder(QByteArrayView(bytes));
    }
    return FromWestern(bytes);
}

String FromQt(QString const& text) {
    char const* const name = NameOf(GetTextPage());
    if (name == nullptr) return ToWestern(text);
    QStringEncoder encoder(name, QStringConverter::Flag::Stateless);
    if (!encoder.isValid()) return ToWestern(text);
    // One character at a time, since the encoder's own replacement for what it lacks is not "?".
    std::string bytes;
    for (char32_t const point : text.toUcs4()) {
        QString const character = QString::fromUcs4(&point, 1);
        QByteArray const encoded = encoder(character);
        bytes += ToQt(encoded.constData()) == character ? encoded.toStdString() : "?";
    }
    return bytes;
}

QString ToQtWithMnemonic(String const& text) {
    QString shown = ToQt(text);
    shown.replace('&', "&&");
    if (qsizetype const mark = shown.indexOf('~'); mark >= 0) shown.replace(mark, 1, '&');
    return shown;
}

}  // namespace sv::qt
