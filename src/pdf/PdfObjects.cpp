#include "pdf/PdfObjects.h"

#include <qpdf/Buffer.hh>

std::string PdfObjects::written(const QPDFObjectHandle &object)
{
    std::string text = unparsed(object);
    while (!m_waiting.empty()) {
        const QPDFObjectHandle next = m_waiting.front();
        m_waiting.pop_front();
        write(next);
    }
    return text;
}

void PdfObjects::write(QPDFObjectHandle object)
{
    const int number = m_numbers.at(object.getObjGen());
    if (!object.isStream()) {
        const std::string text = object.isDictionary() ? "<<" + entriesOf(object) + ">>"
            : object.isArray()                         ? unparsed(object.shallowCopy())
                                                       : object.unparseResolved();
        m_file.write(number, text);
        return;
    }
    const auto bytes = object.getRawStreamData();
    m_file.writeStream(number, entriesOf(object.getDict()),
                       {reinterpret_cast<const char *>(bytes->getBuffer()), bytes->getSize()});
}

std::string PdfObjects::unparsed(QPDFObjectHandle object)
{
    if (object.isIndirect())
        return referenceTo(object);
    if (object.isDictionary())
        return "<<" + entriesOf(object) + ">>";
    if (!object.isArray())
        return object.unparse();
    std::string text = "[";
    for (const QPDFObjectHandle &item : object.getArrayAsVector())
        text += unparsed(item) + ' ';
    return text + ']';
}

std::string PdfObjects::entriesOf(QPDFObjectHandle dictionary)
{
    std::string text;
    for (const auto &[key, value] : dictionary.getDictAsMap()) {
        if (key != "/Length" && !QPDFObjectHandle(value).isNull())
            text += QPDFObjectHandle::newName(key).unparse() + ' ' + unparsed(value) + ' ';
    }
    return text;
}

std::string PdfObjects::referenceTo(const QPDFObjectHandle &object)
{
    const auto [known, isNew] = m_numbers.try_emplace(object.getObjGen());
    if (isNew) {
        known->second = m_file.newObject();
        m_waiting.push_back(object);
    }
    return PdfFile::reference(known->second);
}
