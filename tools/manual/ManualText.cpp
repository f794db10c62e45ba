#include "ManualText.h"

#include <md4c.h>

#include <stdexcept>
#include <utility>

namespace {

using Kind = ManualBlock::Kind;

// What the parser finds, in the order of the source. False means that the manual knows no such thing.
class Blocks {
public:
    bool enter(MD_BLOCKTYPE type, const void *detail)
    {
        switch (type) {
        case MD_BLOCK_DOC:
            return true;
        case MD_BLOCK_UL:
            return !std::exchange(m_inList, true);
        case MD_BLOCK_LI:
            return begin(Kind::Item);
        case MD_BLOCK_P:
            return beginsItem() || begin(Kind::Paragraph);
        case MD_BLOCK_CODE:
            return begin(Kind::Code);
        case MD_BLOCK_H:
            return beginHeading(static_cast<const MD_BLOCK_H_DETAIL *>(detail)->level);
        default:
            return false;
        }
    }

    void leave(MD_BLOCKTYPE type)
    {
        if (type == MD_BLOCK_UL)
            m_inList = false;
        if (type == MD_BLOCK_CODE && m_all.back().text.ends_with('\n'))
            m_all.back().text.pop_back();
    }

    bool enter(MD_SPANTYPE type, const void *detail)
    {
        if (type == MD_SPAN_IMG)
            return beginPicture(static_cast<const MD_SPAN_IMG_DETAIL *>(detail)->src);
        return type == MD_SPAN_EM || type == MD_SPAN_STRONG || type == MD_SPAN_CODE;
    }

    void leave(MD_SPANTYPE type)
    {
        if (type == MD_SPAN_IMG)
            m_inPicture = false;
    }

    bool add(MD_TEXTTYPE type, std::string_view text)
    {
        if (m_all.back().kind == Kind::Picture && !m_inPicture)
            return false;
        if (type == MD_TEXT_SOFTBR)
            return true; // Japanese needs no blank there
        m_all.back().text += type == MD_TEXT_BR ? "\n" : text;
        return type == MD_TEXT_BR || type == MD_TEXT_NORMAL || type == MD_TEXT_CODE;
    }

    std::vector<ManualBlock> taken() { return std::move(m_all); }
    std::string last() const { return m_all.empty() ? std::string() : m_all.back().text; }

private:
    bool begin(Kind kind)
    {
        m_all.push_back({.kind = kind});
        return true;
    }

    bool beginsItem() const
    {
        return !m_all.empty() && m_all.back().kind == Kind::Item && m_all.back().text.empty();
    }

    bool beginHeading(unsigned level)
    {
        constexpr Kind kinds[] = {Kind::Title, Kind::Chapter, Kind::Section};
        return level <= std::size(kinds) && begin(kinds[level - 1]);
    }

    bool beginPicture(const MD_ATTRIBUTE &name)
    {
        ManualBlock &block = m_all.back();
        if (block.kind != Kind::Paragraph || !block.text.empty())
            return false;
        block = {Kind::Picture, {}, std::string(name.text, name.size)};
        m_inPicture = true;
        return true;
    }

    std::vector<ManualBlock> m_all;
    bool m_inList = false;
    bool m_inPicture = false;
};

Blocks &of(void *blocks)
{
    return *static_cast<Blocks *>(blocks);
}

// What the parser asks of its callbacks: a negative number ends the parsing.
int goOn(bool known)
{
    return known ? 0 : -1;
}

} // namespace

std::vector<ManualBlock> manualBlocks(std::string_view source)
{
    MD_PARSER parser{};
    parser.flags = MD_FLAG_NOHTML | MD_FLAG_TABLES;
    parser.enter_block = [](auto type, void *detail, void *to) { return goOn(of(to).enter(type, detail)); };
    parser.enter_span = [](auto type, void *detail, void *to) { return goOn(of(to).enter(type, detail)); };
    parser.leave_block = [](auto type, void *, void *to) { return of(to).leave(type), 0; };
    parser.leave_span = [](auto type, void *, void *to) { return of(to).leave(type), 0; };
    parser.text = [](auto type, const char *text, MD_SIZE size, void *to) {
        return goOn(of(to).add(type, {text, size}));
    };
    Blocks blocks;
    if (md_parse(source.data(), MD_SIZE(source.size()), &parser, &blocks) != 0)
        throw std::runtime_error("the manual can't show what follows: " + blocks.last());
    return blocks.taken();
}
