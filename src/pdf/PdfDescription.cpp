#include "pdf/PdfDescription.h"

#include "pdf/PdfSyntax.h"
#include "pdf/StandardColours.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>

using PdfSyntax::reference;

namespace {

constexpr const char *maker = "Tarumine";

struct Time {
    std::tm parts;
    bool isUniversal;
};

// In the time of the place, unless it is told.
Time now()
{
    std::time_t seconds = 0;
    Time time{};
    const char *told = std::getenv("SOURCE_DATE_EPOCH");
    const char *end = told ? told + std::strlen(told) : nullptr;
    time.isUniversal =
        told && std::from_chars(told, end, seconds).ptr == end && ::gmtime_r(&seconds, &time.parts);
    if (!time.isUniversal) {
        seconds = std::time(nullptr);
        ::localtime_r(&seconds, &time.parts);
    }
    return time;
}

std::string formatted(const Time &time, const char *format)
{
    char text[64];
    return {text, std::strftime(text, sizeof text, format, &time.parts)};
}

// As far from universal time as the place is, "+09" and "00" with these around.
std::string zone(const Time &time, const char *between, const char *behind)
{
    if (time.isUniversal)
        return "Z";
    const std::string digits = formatted(time, "%z");
    return digits.substr(0, 3) + between + digits.substr(3) + behind;
}

// A text that may stand in the metadata: what XML doesn't know isn't in a name that anybody gave.
std::string asXml(std::string_view text)
{
    std::string xml;
    for (const char c : text) {
        switch (c) {
        case '&':
            xml += "&amp;";
            break;
        case '<':
            xml += "&lt;";
            break;
        case '>':
            xml += "&gt;";
            break;
        default:
            xml += c;
        }
    }
    return xml;
}

std::string withoutControls(std::string text)
{
    std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7f; });
    return text.empty() ? maker : text;
}

// That a document for archives may say it can be read aloud is something that archives must be told of.
constexpr const char *readAloud =
    "<pdfuaid:part>1</pdfuaid:part>"
    "<pdfaExtension:schemas><rdf:Bag><rdf:li rdf:parseType=\"Resource\">"
    "<pdfaSchema:schema>PDF/UA identification schema</pdfaSchema:schema>"
    "<pdfaSchema:namespaceURI>http://www.aiim.org/pdfua/ns/id/</pdfaSchema:namespaceURI>"
    "<pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>"
    "<pdfaSchema:property><rdf:Seq><rdf:li rdf:parseType=\"Resource\">"
    "<pdfaProperty:name>part</pdfaProperty:name>"
    "<pdfaProperty:valueType>Integer</pdfaProperty:valueType>"
    "<pdfaProperty:category>internal</pdfaProperty:category>"
    "<pdfaProperty:description>Part of the standard that the document keeps</pdfaProperty:description>"
    "</rdf:li></rdf:Seq></pdfaSchema:property>"
    "</rdf:li></rdf:Bag></pdfaExtension:schemas>";

std::string metadata(const std::string &title, const Time &time, bool isReadAloud)
{
    return "<?xpacket begin=\"\xef\xbb\xbf\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
           "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
           "<rdf:Description rdf:about=\"\""
           " xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
           " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
           " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\""
           " xmlns:pdfuaid=\"http://www.aiim.org/pdfua/ns/id/\""
           " xmlns:pdfaExtension=\"http://www.aiim.org/pdfa/ns/extension/\""
           " xmlns:pdfaSchema=\"http://www.aiim.org/pdfa/ns/schema#\""
           " xmlns:pdfaProperty=\"http://www.aiim.org/pdfa/ns/property#\">"
           "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">"
        + asXml(title) + "</rdf:li></rdf:Alt></dc:title><xmp:CreatorTool>" + maker
        + "</xmp:CreatorTool><xmp:CreateDate>" + formatted(time, "%Y-%m-%dT%H:%M:%S") + zone(time, ":", "")
        + "</xmp:CreateDate><pdfaid:part>2</pdfaid:part><pdfaid:conformance>U</pdfaid:conformance>"
        + (isReadAloud ? readAloud : "")
        + "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>";
}

// The colours are those of a screen.
std::string outputIntents(PdfFile &file)
{
    const std::string_view profile{reinterpret_cast<const char *>(standardColours), sizeof standardColours};
    return "[<</Type /OutputIntent /S /GTS_PDFA1 /OutputConditionIdentifier (sRGB) /DestOutputProfile "
        + reference(file.addStream("/N 3", profile)) + ">>]";
}

} // namespace

void finishPdf(PdfFile &file, int pages, const PdfDescription &description)
{
    const Time time = now();
    const std::string title = withoutControls(description.title);
    const int about = file.newObject();
    file.writeStream(about, "/Type /Metadata /Subtype /XML",
                     metadata(title, time, !description.structure.empty()));
    const int catalog =
        file.add("<</Type /Catalog /Lang (ja) /ViewerPreferences <</DisplayDocTitle true>> /Pages "
                 + reference(pages) + " /Metadata " + reference(about) + " /OutputIntents "
                 + outputIntents(file) + description.structure + description.more + ">>");
    const int information =
        file.add("<</Title " + PdfSyntax::text(title) + " /Creator (" + maker
                 + ") /CreationDate (D:" + formatted(time, "%Y%m%d%H%M%S") + zone(time, "'", "'") + ")>>");
    file.finish(catalog, information);
}
