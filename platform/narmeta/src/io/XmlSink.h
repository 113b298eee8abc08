#pragma once

#include "number_text.h"

#include <narmeta/Colour.h>

#include <QXmlStreamWriter>

#include <array>

namespace NarMetaInfra
{

/// Writes elements whose absent attributes are left out.
class XmlSink
{
public:
    /// @p block: takes the numbers of arrays as they stand in memory, which the text then only points to; for
    /// readers of this build. Null writes them as text.
    explicit XmlSink(QByteArray* text, std::string* block = nullptr) : writer_(text), block_(block)
    {
        writer_.setAutoFormatting(!block);
        writer_.setAutoFormattingIndent(1);
        writer_.writeStartDocument();
    }

    /// An element that ends with the life of the object.
    class Element
    {
    public:
        explicit Element(QXmlStreamWriter& writer) : writer_(writer) {}
        ~Element() { writer_.writeEndElement(); }
        Element(Element const&) = delete;
        Element& operator=(Element const&) = delete;

    private:
        QXmlStreamWriter& writer_;
    };
    [[nodiscard]] Element Open(char const* name)
    {
        writer_.writeStartElement(QLatin1String(name));
        return Element(writer_);
    }

    void Attribute(char const* name, std::wstring const& text)
    {
        if (!text.empty()) put(name, QString::fromStdWString(text));
    }
    /// Written only when it is true.
    void Flag(char const* name, bool value)
    {
        if (value) put(name, QStringLiteral("true"));
    }
    template <class Number>
    void Attribute(char const* name, Number number) requires std::is_arithmetic_v<Number>
    {
        put(name, QString::fromStdString(JoinNumbers(std::array{number})));
    }
    template <class T> void Attribute(char const* name, std::optional<T> const& value)
    {
        if (value) Attribute(name, *value);
    }
    void Attribute(char const* name, NarMeta::Colour const& colour)
    {
        put(name, QString::fromStdString(JoinNumbers(std::array{colour.red, colour.green, colour.blue})));
    }
    template <class Number, std::size_t N>
    void Attribute(char const* name, std::array<Number, N> const& numbers)
    {
        put(name, QString::fromStdString(JoinNumbers(numbers)));
    }
    void Colours(NarMeta::Coloured const& coloured)
    {
        Attribute("colour", coloured.GetColour());
        Attribute("alpha", coloured.GetAlpha());
    }
    bool IsPacked() const { return block_; }
    /// An element that points to records in the block.
    template <class Record> void Records(char const* name, Record const* records, std::size_t count)
    {
        writer_.writeTextElement(QLatin1String(name), inBlock(records, count));
    }

    /// An element that holds nothing but numbers.
    template <class Numbers> void Array(char const* name, Numbers const& numbers)
    {
        if (block_) return Records(name, std::data(numbers), std::size(numbers));
        writer_.writeTextElement(QLatin1String(name), QString::fromStdString(JoinNumbers(numbers)));
    }
    /// Numbers as the text of the open element.
    template <class Numbers> void Content(Numbers const& numbers)
    {
        if (block_) return writer_.writeCharacters(inBlock(std::data(numbers), std::size(numbers)));
        writer_.writeCharacters(QString::fromStdString(JoinNumbers(numbers)));
    }
    void Text(char const* name, std::wstring const& text)
    {
        writer_.writeTextElement(QLatin1String(name), clean(QString::fromStdWString(text)));
    }
    void Bytes(char const* name, QByteArray const& bytes)
    {
        if (block_) return Records(name, bytes.constData(), static_cast<std::size_t>(bytes.size()));
        writer_.writeTextElement(QLatin1String(name), QString::fromLatin1(bytes.toBase64()));
    }

private:
    template <class Record> QString inBlock(Record const* records, std::size_t count)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        auto const offset = block_->size();
        if (count > 0) block_->append(reinterpret_cast<char const*>(records), count * sizeof(Record));
        return QStringLiteral("@%1 %2").arg(offset).arg(count);
    }
    void put(char const* name, QString const& text)
    {
        writer_.writeAttribute(QLatin1String(name), clean(text));
    }
    // Characters that no XML text may hold would make the whole of it unreadable.
    static QString clean(QString text)
    {
        text.removeIf([](QChar c) {
            return (c < u' ' && c != u'\n' && c != u'\t' && c != u'\r') || c.unicode() >= 0xFFFE;
        });
        return text;
    }

    QXmlStreamWriter writer_;
    std::string* block_;
};

} // namespace NarMetaInfra
