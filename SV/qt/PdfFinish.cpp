#include "SV/qt/PdfFinish.h"

#include <QByteArray>
#include <QXmlStreamWriter>
#include <exception>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace sv::qt {

namespace {

constexpr char const* Meta = "adobe:ns:meta/";
constexpr char const* XmlSpace = "http://www.w3.org/XML/1998/namespace";
constexpr char const* Rdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
constexpr char const* DublinCore = "http://purl.org/dc/elements/1.1/";
constexpr char const* Xmp = "http://ns.adobe.com/xap/1.0/";
constexpr char const* Pdf = "http://ns.adobe.com/pdf/1.3/";
constexpr char const* PdfA = "http://www.aiim.org/pdfa/ns/id/";

std::string Utf8(QString const& text) { return text.toStdString(); }

QString ValueOf(QPDFObjectHandle dictionary, char const* key) {
    QPDFObjectHandle value = dictionary.getKey(key);
    return value.isString() ? QString::fromStdString(value.getUTF8Value()) : QString();
}

/// Converts "D:20240131140559+01'00'" to "2024-01-31T14:05:59+01:00".
QString IsoTime(QString const& pdfTime) {
    constexpr qsizetype Zone = 16;
    auto const digits = [&](qsizetype from, qsizetype count) { return pdfTime.mid(from, count); };
    QString zone = pdfTime.mid(Zone);
    zone.replace('\'', ':');
    if (zone.endsWith(':')) zone.chop(1);
    return digits(2, 4) + '-' + digits(6, 2) + '-' + digits(8, 2) + 'T' + digits(10, 2) + ':' +
           digits(12, 2) + ':' + digits(14, 2) + (zone.isEmpty() ? QString("Z") : zone);
}

/// Writes an entry of a list of the given kind.
void WriteListed(QXmlStreamWriter& xml, QString const& name, QString const& kind, QString const& value) {
    if (value.isEmpty()) return;
    xml.writeStartElement(DublinCore, name);
    xml.writeStartElement(Rdf, kind);
    xml.writeStartElement(Rdf, "li");
    if (kind == "Alt") xml.writeAttribute(XmlSpace, "lang", "x-default");
    xml.writeCharacters(value);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

void WriteValue(QXmlStreamWriter& xml, char const* space, QString const& name, QString const& value) {
    if (!value.isEmpty()) xml.writeTextElement(space, name, value);
}

/// Returns XMP metadata with the entries of the document information.
QByteArray Metadata(QPDFObjectHandle const& info, QString const& language) {
    QByteArray written;
    QXmlStreamWriter xml(&written);
    xml.setAutoFormatting(true);
    xml.writeProcessingInstruction("xpacket", "begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"");
    for (auto const& [space, prefix] :
         {std::pair(Meta, "x"), std::pair(Rdf, "rdf"), std::pair(DublinCore, "dc"), std::pair(Xmp, "xmp"),
          std::pair(Pdf, "pdf"), std::pair(PdfA, "pdfaid")})
        xml.writeNamespace(space, prefix);
    xml.writeStartElement(Meta, "xmpmeta");
    xml.writeStartElement(Rdf, "RDF");
    xml.writeStartElement(Rdf, "Description");
    xml.writeAttribute(Rdf, "about", {});
    WriteListed(xml, "title", "Alt", ValueOf(info, "/Title"));
    WriteListed(xml, "creator", "Seq", ValueOf(info, "/Author"));
    WriteListed(xml, "language", "Bag", language);
    WriteValue(xml, Xmp, "CreatorTool", ValueOf(info, "/Creator"));
    WriteValue(xml, Xmp, "CreateDate", IsoTime(ValueOf(info, "/CreationDate")));
    WriteValue(xml, Pdf, "Producer", ValueOf(info, "/Producer"));
    WriteValue(xml, PdfA, "part", "1");
    WriteValue(xml, PdfA, "conformance", "B");
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeProcessingInstruction("xpacket", "end=\"w\"");
    return written;
}

/// Trims the bottom of each page, since Qt's coordinates begin at the top.
void TrimPages(QPDF& pdf, QSizeF size) {
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(pdf).getAllPages()) {
        double const top = page.getMediaBox().getArrayAsRectangle().ury;
        page.getObjectHandle().replaceKey("/MediaBox", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(
                                                           0, top - size.height(), size.width(), top)));
    }
}

/// Returns the prefix of a subset font: six letters, different for each font.
std::string SubsetTag(unsigned number) {
    std::string tag = "/AAAAAA+";
    for (std::size_t place = 6; place > 0 && number > 0; --place, number /= 26)
        tag[place] = static_cast<char>('A' + number % 26);
    return tag;
}

/// Adds the prefix of a subset to the fonts' names, which Qt leaves out although it embeds subsets.
void NameSubsets(QPDF& pdf) {
    unsigned number = 0;
    for (QPDFObjectHandle& font : pdf.getAllObjects()) {
        if (!font.isDictionary() || !font.getKey("/Subtype").isNameAndEquals("/Type0")) continue;
        std::string const tag = SubsetTag(number++);
        auto const mark = [&tag](QPDFObjectHandle part, char const* key) {
            std::string const name = part.getKey(key).getName();
            part.replaceKey(key, QPDFObjectHandle::newName(tag + name.substr(1)));
        };
        QPDFObjectHandle letters = font.getKey("/DescendantFonts").getArrayItem(0);
        mark(font, "/BaseFont");
        mark(letters, "/BaseFont");
        mark(letters.getKey("/FontDescriptor"), "/FontName");
    }
}

void Describe(QPDF& pdf, PdfDescription const& description) {
    QPDFObjectHandle info = pdf.getTrailer().getKey("/Info");
    auto const set = [&info](char const* key, QString const& value) {
        if (value.isEmpty()) {
            info.removeKey(key);
        } else {
            info.replaceKey(key, QPDFObjectHandle::newUnicodeString(Utf8(value)));
        }
    };
    set("/Title", description.title);
    set("/Author", description.author);
    // Some programs look for the conformance level here.
    set("/GTS_PDFA1Version", "PDF/A-1b:2005");
    QPDFObjectHandle root = pdf.getRoot();
    if (!description.language.isEmpty())
        root.replaceKey("/Lang", QPDFObjectHandle::newUnicodeString(Utf8(description.language)));

    QPDFObjectHandle metadata =
        QPDFObjectHandle::newStream(&pdf, Metadata(info, description.language).toStdString());
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    root.replaceKey("/Metadata", pdf.makeIndirectObject(metadata));
}

std::string Written(QPDF& pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    // PDF/A-1 does not allow object streams.
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.forcePDFVersion("1.4");
    writer.write();
    auto const buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<char const*>(buffer->getBuffer()), buffer->getSize()};
}

}  // namespace

std::optional<std::string> FinishPdf(std::string_view pdf, PdfDescription const& description) {
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processMemoryFile("pages", pdf.data(), pdf.size());
        TrimPages(document, description.page);
        NameSubsets(document);
        Describe(document, description);
        return Written(document);
    } catch (std::exception const&) {
        return std::nullopt;
    }
}

}  // namespace sv::qt
