#pragma once

#include "pdf/PdfOutput.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// Writes a document object by object. What has been written isn't kept, only where it lies: so a document
/// may have millions of objects. Everything here throws when the output takes no more.
class PdfFile {
public:
    static constexpr std::size_t mostObjects = 8'388'607; // that every reader takes

    /// Nothing is put out before the first object is.
    explicit PdfFile(PdfOutput output);

    /// A number for an object that is yet to be written. Throws when there are too many.
    int newObject();

    void write(int number, std::string_view object);
    /// `entries` of its dictionary: all but the length.
    void writeStream(int number, std::string_view entries, std::string_view bytes);

    /// Both return the number that the object has got.
    int add(std::string_view object);
    /// The bytes are compressed here; `entries` say nothing of that.
    int addStream(std::string_view entries, std::string_view bytes);

    /// Ends the file; these objects are its catalog and its information.
    void finish(int catalog, int information);

private:
    struct Place {
        std::uint64_t where : 48 = 0; // in the file, or the number of the stream that holds it
        std::uint64_t index : 15 = 0; // in that stream
        std::uint64_t isPacked : 1 = 0;
    };

    void put(std::string_view bytes);
    void putStream(std::string_view entries, std::string_view bytes);
    void writePacked();
    std::string table() const;

    PdfOutput m_output;
    std::uint64_t m_length = 0;
    std::uint64_t m_digest = 0;
    std::deque<Place> m_places;
    // Objects that are packed together next.
    std::vector<int> m_packed;
    std::string m_packedPlaces;
    std::string m_packedObjects;
};
