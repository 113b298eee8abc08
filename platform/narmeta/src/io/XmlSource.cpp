#include "XmlSource.h"

#include <algorithm>

namespace NarMetaInfra
{

QXmlStreamReader::TokenType XmlSource::next()
{
    auto const token = reader_.readNext();
    if (token == QXmlStreamReader::StartElement && ++depth_ > DeepestElement)
        Fail(QStringLiteral("elements are nested too deep"));
    if (token == QXmlStreamReader::EndElement) --depth_;
    if (token == QXmlStreamReader::DTD) Fail(QStringLiteral("a document type declaration is not allowed"));
    return reader_.hasError() ? QXmlStreamReader::Invalid : token;
}

void XmlSource::Children(std::initializer_list<Handler> handlers)
{
    int const level = depth_;
    while (!reader_.atEnd()) {
        auto const token = next();
        if (token == QXmlStreamReader::EndElement && depth_ < level) return;
        if (token != QXmlStreamReader::StartElement) continue;
        auto const handler = std::find_if(handlers.begin(), handlers.end(), [this](Handler const& candidate) {
            return reader_.name() == QLatin1String(candidate.element);
        });
        if (handler != handlers.end()) handler->read();
        while (depth_ > level && !reader_.atEnd()) next();
    }
}

std::wstring XmlSource::Text(char const* name) const
{
    return reader_.attributes().value(QLatin1String(name)).toString().toStdWString();
}

bool XmlSource::Flag(char const* name)
{
    auto const text = reader_.attributes().value(QLatin1String(name));
    if (!text.isEmpty() && text != QLatin1String("true") && text != QLatin1String("false"))
        Fail(QStringLiteral("attribute \"%1\" is neither true nor false").arg(QLatin1String(name)));
    return text == QLatin1String("true");
}

std::optional<NarMeta::Colour> XmlSource::Colour(char const* name)
{
    auto const channels = Tuple<3, unsigned short>(name);
    if (!channels) return {};
    if (*std::max_element(channels->begin(), channels->end()) > 255)
        Fail(QStringLiteral("a colour channel is above 255"));
    return NarMeta::Colour{(*channels)[0], (*channels)[1], (*channels)[2]};
}

std::optional<unsigned short> XmlSource::Channel(char const* name)
{
    auto const value = NumberOf<unsigned short>(name);
    if (value && *value > 255) Fail(QStringLiteral("attribute \"%1\" is above 255").arg(QLatin1String(name)));
    return value;
}

void XmlSource::Colours(NarMeta::Coloured& coloured)
{
    coloured.SetColour(Colour("colour"));
    coloured.SetAlphaColor(Channel("alpha"));
}

QByteArray XmlSource::content()
{
    QByteArray text;
    int const level = depth_;
    while (!reader_.atEnd()) {
        auto const token = next();
        if (token == QXmlStreamReader::EndElement && depth_ < level) break;
        if (token == QXmlStreamReader::Characters && depth_ == level) text += reader_.text().toUtf8();
    }
    return Failed() ? QByteArray() : text;
}

std::wstring XmlSource::TextContent()
{
    return QString::fromUtf8(content()).toStdWString();
}

QByteArray XmlSource::Bytes()
{
    auto const text = content();
    if (text.startsWith('@')) {
        auto const packed = inBlock<char>(text.toStdString());
        return {packed.data(), static_cast<qsizetype>(packed.size())};
    }
    auto const bytes =
        QByteArray::fromBase64Encoding(text.simplified(), QByteArray::AbortOnBase64DecodingErrors);
    if (!bytes) Fail(QStringLiteral("an image holds something that is no base64"));
    return bytes ? *bytes : QByteArray();
}

std::vector<float> XmlSource::Points()
{
    auto points = Array<float>();
    if (points.size() % 3 == 0) return points;
    Fail(QStringLiteral("the number of coordinates is no multiple of 3"));
    return {};
}

void XmlSource::Fail(QString const& cause)
{
    FailAt(Line(), cause);
}

void XmlSource::FailAt(qint64 line, QString const& cause)
{
    if (Failed()) return;
    errorLine_ = line;
    reader_.raiseError(cause);
}

std::wstring XmlSource::Error() const
{
    auto const line = errorLine_ < 0 ? Line() : errorLine_;
    return (QStringLiteral("line %1: ").arg(line) + reader_.errorString().simplified()).toStdWString();
}

} // namespace NarMetaInfra
