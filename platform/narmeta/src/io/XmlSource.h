#pragma once

#include "number_text.h"

#include <narmeta/Colour.h>
#include <narmeta/Id.h>

#include <QXmlStreamReader>

#include <array>
#include <cstring>
#include <functional>

namespace NarMetaInfra
{

/// Walks an XML text element by element. After the first fault nothing more is delivered: lists end, texts
/// are empty, so that callers need not ask after each step.
class XmlSource
{
public:
    /// Elements within elements; more is taken for an attack.
    static constexpr int DeepestElement = 200;

    /// @p block: where XmlSink put the arrays, if it did.
    explicit XmlSource(QByteArray const& text, std::string_view block = {}) : reader_(text), block_(block) {}

    struct Handler {
        char const* element;
        std::function<void()> read;
    };
    /// Goes through the children of the open element (of the document at the start); a child without a
    /// handler is skipped.
    void Children(std::initializer_list<Handler> handlers);

    // Attributes of the open element. Ask before its children are read.
    std::wstring Text(char const* name) const;
    bool Flag(char const* name);
    template <class Number> std::optional<Number> NumberOf(char const* name)
    {
        if (!has(name)) return {};
        auto const number = ParseNumber<Number>(raw(name));
        if (!number) Fail(QStringLiteral("attribute \"%1\" is no valid number").arg(QLatin1String(name)));
        return number;
    }
    template <std::size_t N, class Number = float>
    std::optional<std::array<Number, N>> Tuple(char const* name)
    {
        if (!has(name)) return {};
        return toTuple<N, Number>(raw(name), name);
    }
    std::optional<NarMeta::Colour> Colour(char const* name);
    std::optional<unsigned short> Channel(char const* name);
    void Colours(NarMeta::Coloured& coloured);
    /// An enumerator by its number, if it is one of @p first to @p last.
    template <class Enumeration>
    Enumeration Choice(char const* name, int first, int last, Enumeration fallback)
    {
        auto const number = NumberOf<int>(name);
        if (!number) return fallback;
        if (*number < first || *number > last)
            Fail(QStringLiteral("attribute \"%1\" is out of range").arg(QLatin1String(name)));
        return static_cast<Enumeration>(*number);
    }

    // Contents of the open element, which ends with it.
    std::wstring TextContent();
    QByteArray Bytes();
    /// What XmlSink::Records wrote.
    template <class Record> std::vector<Record> Records()
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        return inBlock<Record>(content().toStdString());
    }
    template <class Number> std::vector<Number> Array()
    {
        auto const text = content().toStdString();
        if (text.starts_with('@')) return inBlock<Number>(text);
        auto numbers = SplitNumbers<Number>(text);
        if (!numbers) Fail(QStringLiteral("an array holds something that is no valid number"));
        return numbers ? std::move(*numbers) : std::vector<Number>{};
    }
    /// x, y, z in a row.
    std::vector<float> Points();
    template <std::size_t N> std::array<float, N> Tuple()
    {
        auto const line = Line();
        auto const text = content().toStdString();
        if (text.starts_with('@')) {
            auto const numbers = inBlock<float>(text);
            std::array<float, N> packed{};
            if (numbers.size() == N)
                std::copy(numbers.begin(), numbers.end(), packed.begin());
            else
                Fail(QStringLiteral("a tuple in the block has another length"));
            return packed;
        }
        auto const tuple = toTuple<N, float>(text, "content", line);
        return tuple.value_or(std::array<float, N>{});
    }

    void Fail(QString const& cause);
    void FailAt(qint64 line, QString const& cause);
    bool Failed() const { return reader_.hasError(); }
    qint64 Line() const { return reader_.lineNumber(); }
    qint64 Offset() const { return reader_.characterOffset(); }
    /// "line 12: cause".
    std::wstring Error() const;

private:
    /// "@offset count" in the block behind the text.
    template <class Record> std::vector<Record> inBlock(std::string const& text)
    {
        auto const place = SplitNumbers<std::size_t>(std::string_view(text).substr(text.empty() ? 0 : 1));
        if (!text.starts_with('@') || !place || place->size() != 2 || (*place)[0] > block_.size() ||
            (*place)[1] > (block_.size() - (*place)[0]) / sizeof(Record)) {
            Fail(QStringLiteral("an array lies outside the block"));
            return {};
        }
        std::vector<Record> records((*place)[1]);
        if (!records.empty())
            std::memcpy(static_cast<void*>(records.data()), block_.data() + (*place)[0],
                        records.size() * sizeof(Record));
        return records;
    }
    bool has(char const* name) const { return reader_.attributes().hasAttribute(QLatin1String(name)); }
    std::string raw(char const* name) const
    {
        return reader_.attributes().value(QLatin1String(name)).toString().toStdString();
    }
    template <std::size_t N, class Number>
    std::optional<std::array<Number, N>> toTuple(std::string const& text, char const* name, qint64 line = -1)
    {
        auto const numbers = SplitNumbers<Number>(text);
        if (!numbers || numbers->size() != N) {
            if (!Failed())
                FailAt(line < 0 ? Line() : line,
                       QStringLiteral("\"%1\" must hold %2 valid numbers").arg(QLatin1String(name)).arg(N));
            return {};
        }
        std::array<Number, N> tuple{};
        std::copy(numbers->begin(), numbers->end(), tuple.begin());
        return tuple;
    }
    QXmlStreamReader::TokenType next();
    QByteArray content();

    QXmlStreamReader reader_;
    std::string_view block_;
    int depth_ = 0;
    qint64 errorLine_ = -1;
};

} // namespace NarMetaInfra
