#pragma once

#include "pdf/PdfFile.h"

#include <qpdf/QPDF.hh>

#include <deque>
#include <map>

/// Brings what was built of QPDF's objects into a file.
class PdfObjects {
public:
    explicit PdfObjects(PdfFile &file)
        : m_file(file)
    {
    }

    /// From now on, this object stands for that one of the file.
    void bind(const QPDFObjectHandle &object, int number) { m_numbers[object.getObjGen()] = number; }

    /// How the object is written where others refer to it. All that it refers to is written, too.
    std::string written(const QPDFObjectHandle &object);

private:
    std::string unparsed(QPDFObjectHandle object);
    std::string entriesOf(QPDFObjectHandle dictionary);
    std::string referenceTo(const QPDFObjectHandle &object);
    void write(QPDFObjectHandle object);

    PdfFile &m_file;
    std::map<QPDFObjGen, int> m_numbers;
    std::deque<QPDFObjectHandle> m_waiting; // have a number already
};
