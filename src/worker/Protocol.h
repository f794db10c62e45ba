#pragma once

#include <cstdint>
#include <cstring>

/// What a window's process and a worker tell each other. Both are of the same release, since a worker takes
/// no order of another one, but neither trusts the other: whoever receives something looks at every number
/// in it before it is used.
namespace Protocol {

inline constexpr char release[16] = TARUMINE_VERSION;

inline bool isOurs(const char (&other)[sizeof release])
{
    return std::memcmp(other, release, sizeof release) == 0;
}

/// The files that a worker is given.
enum File {
    OrderFile = 3, ///< sealed memory: an Order, then what it says follows it
    ReportFile,    ///< a pipe for Reports: Ready, then as much Progress as it likes, then Ended
    ResultFile,    ///< memory to be written for a text or a picture, a pipe for a document
    PickedFile,    ///< in place of bytes behind the order; not there for other jobs
};

enum class Job : std::uint32_t { Decode, Paper, Picture };

struct DecodeOrder {
    std::uint64_t bytes;      ///< of the file, and behind the order where none is handed over
    std::uint64_t characters; ///< for so many, of UTF-16, there is room
    std::uint32_t isPicked;   ///< 1: the bytes are those of the PickedFile
    char encoding[32];        ///< that somebody has told, ended by a zero; else empty
};

/// Behind it: the ranges of pages, the text in UTF-16, the family and the title in UTF-8.
struct PaperOrder {
    double width, height, top, bottom, left, right, longestLine; ///< points
    std::int32_t lastPage, copies;
    std::uint32_t collated, lastFirst, grey, numbered; ///< 0 or 1
    std::uint64_t ranges, characters, family, title;   ///< how many of each
};

/// Behind it: what the file holds.
struct PictureOrder {
    std::uint32_t side; ///< pixels of the square for which there is room
};

struct Order {
    char release[sizeof Protocol::release]; ///< the first in every release
    Job job;
    std::uint32_t seconds; ///< of a processor's time, at most
    std::uint64_t memory;  ///< bytes, at most
    DecodeOrder decode;
    PaperOrder paper;
    PictureOrder picture;
};

struct Report {
    enum class Kind : std::uint32_t { Ready, Progress, Ended };
    enum class Result : std::uint32_t { Done, Failed, NoMemory, NoFonts };

    Kind kind;
    std::uint32_t landlock, systemCalls; ///< how far it is confined: see Confinement
    std::uint32_t pages, share;          ///< how many are made, of which part of the text, in millionths
    Result result;                       ///< of the job
    std::uint64_t size;                  ///< characters of the text, bytes of the document
    std::uint32_t width, height;         ///< pixels of the picture
};

} // namespace Protocol
