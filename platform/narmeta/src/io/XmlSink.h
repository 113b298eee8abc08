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
    explicit XmlSink(QByteArray* text) : writer_(text)
    {
        writer_.setAutoFormatting(true);
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
    /// An element that holds nothing but numbers.
    template <class Numbers> void Array(char const* name, Numbers const& numbers)
    {
        writer_.writeTextElement(QLatin1String(name), QString::fromStdString(JoinNumbers(numbers)));
    }
    /// Numbers as the text of the open element.
    template <class Numbers> void Content(Numbers const& numbers)
    {
        writer_.writeCharacters(QString::fromStdString(JoinNumbers(numbers)));
    }
    void Text(char const* name, std::wstring const& text)
    {
        writer_.writeTextElement(QLatin1String(name), QString::fromStdWString(text));
    }
    void Bytes(char const* name, QByteArray const& bytes)
    {
        writer_.writeTextElement(QLatin1String(name), QString::fromLatin1(bytes.toBase64()));
    }

private:
    void put(char const* name, QString const& text) { writer_.writeAttribute(QLatin1String(name), text); }

    QXmlStreamWriter writer_;
};

} // namespace NarMetaInfra
