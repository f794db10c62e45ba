#include "pdf/PdfFile.h"

#include "pdf/Deflate.h"
#include "pdf/PdfSyntax.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace {

constexpr std::size_t objectsOfPack = 256;

constexpr std::size_t bytesOfWhere = 6;
constexpr std::size_t bytesOfRow = 1 + bytesOfWhere + 2;

void appendBytes(std::string &to, std::uint64_t value, std::size_t count)
{
    while (count-- > 0)
        to += char((value >> (8 * count)) & 0xff);
}

std::string hex(std::uint64_t value)
{
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4)
        digits += "0123456789ABCDEF"[(value >> shift) & 15];
    return digits;
}

} // namespace

PdfFile::PdfFile(PdfOutput output)
    : m_output(std::move(output))
    , m_places(1)
{
}

int PdfFile::newObject()
{
    if (m_places.size() > mostObjects)
        throw std::length_error("a document has no room for so many objects");
    m_places.emplace_back();
    return int(m_places.size() - 1);
}

int PdfFile::add(std::string_view object)
{
    const int number = newObject();
    write(number, object);
    return number;
}

int PdfFile::addStream(std::string_view entries, std::string_view bytes)
{
    const int number = newObject();
    writeStream(number, std::string(entries) + " /Filter /FlateDecode", deflated(bytes));
    return number;
}

void PdfFile::write(int number, std::string_view object)
{
    m_places[std::size_t(number)] = {.index = m_packed.size(), .isPacked = 1};
    m_packed.push_back(number);
    m_packedPlaces += std::to_string(number) + ' ' + std::to_string(m_packedObjects.size()) + ' ';
    m_packedObjects.append(object) += '\n';
    if (m_packed.size() == objectsOfPack)
        writePacked();
}

void PdfFile::writePacked()
{
    if (m_packed.empty())
        return;
    const std::string entries = "/Type /ObjStm /N " + std::to_string(m_packed.size()) + " /First "
        + std::to_string(m_packedPlaces.size());
    const int pack = addStream(entries, m_packedPlaces + m_packedObjects);
    for (const int number : m_packed)
        m_places[std::size_t(number)].where = std::uint64_t(pack);
    m_packed.clear();
    m_packedPlaces.clear();
    m_packedObjects.clear();
}

void PdfFile::writeStream(int number, std::string_view entries, std::string_view bytes)
{
    if (m_length == 0)
        put("%PDF-1.7\n%\277\367\242\376\n");
    m_places[std::size_t(number)].where = m_length;
    put(std::to_string(number) + " 0 obj\n");
    putStream(entries, bytes);
}

void PdfFile::putStream(std::string_view entries, std::string_view bytes)
{
    std::string begin("<<");
    begin.append(entries).append(" /Length ").append(std::to_string(bytes.size())).append(">>\nstream\n");
    put(begin);
    put(bytes);
    put("\nendstream\nendobj\n");
}

void PdfFile::put(std::string_view bytes)
{
    m_length += bytes.size();
    m_digest = m_digest * 0x9e3779b97f4a7c15 + std::hash<std::string_view>()(bytes);
    if (!m_output(bytes.data(), bytes.size()))
        throw std::runtime_error("the output takes no more");
}

// A row for each object, and of each row what differs from the one above: that packs best.
std::string PdfFile::table() const
{
    std::string rows;
    rows.reserve(m_places.size() * (bytesOfRow + 1));
    std::string above(bytesOfRow, '\0');
    std::string row;
    for (std::size_t number = 0; number < m_places.size(); ++number) {
        const Place &place = m_places[number];
        row.clear();
        row += number == 0 ? '\0' : char(place.isPacked ? 2 : 1);
        appendBytes(row, place.where, bytesOfWhere);
        appendBytes(row, number == 0 ? 0xffff : place.index, 2);
        rows += '\2'; // "as above, but for"
        for (std::size_t i = 0; i < bytesOfRow; ++i)
            rows += char(row[i] - above[i]);
        above.swap(row);
    }
    return rows;
}

void PdfFile::finish(int catalog, int information)
{
    writePacked();
    const int number = newObject();
    const std::uint64_t begin = m_length;
    m_places[std::size_t(number)].where = begin;
    const std::string size = std::to_string(m_places.size());
    const std::string mark = '<' + hex(m_digest) + hex(m_length) + '>';
    const std::string entries = "/Type /XRef /W [1 6 2] /Size " + size + " /Root "
        + PdfSyntax::reference(catalog) + " /Info " + PdfSyntax::reference(information) + " /ID [" + mark
        + mark + "] /Filter /FlateDecode /DecodeParms <</Predictor 12 /Columns "
        + std::to_string(bytesOfRow) + ">>";
    put(std::to_string(number) + " 0 obj\n");
    putStream(entries, deflated(table()));
    put("startxref\n" + std::to_string(begin) + "\n%%EOF\n");
}
