#include "ZelXmlFormat.h"
#include "zel_xml_parts.h"

#include <QFile>

#include <algorithm>
#include <deque>

namespace NarMetaInfra
{

namespace
{

/// Above this a text is refused: the reader keeps it in memory as a whole.
constexpr qint64 LargestFile = qint64{1} << 30;

/// An instance as it stands in the file, before all references are known.
struct PendingInstance {
    std::shared_ptr<ZELReference> owner; ///< null for a root instance
    std::wstring of;
    std::wstring pid;
    std::wstring name;
    NarMeta::Coloured colours;
    bool hidden = false;
    bool suppressed = false;
    Matrix matrix = IdentityMatrix;
    qint64 line = 0;
};

class ModelXml
{
public:
    ModelXml(std::string_view text, ReadRequest const& request, ZELProductStructure& model,
             std::string_view block)
        : source_(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())), block),
          size_(static_cast<double>(text.size())),
          request_(request),
          model_(model)
    {
    }

    ReadResult Read()
    {
        bool found = false;
        source_.Children({{"zel_xml", [&] {
                               found = true;
                               if (source_.NumberOf<int>("version").value_or(1) > 1)
                                   source_.Fail(QStringLiteral("the file was written by a newer version"));
                               source_.Children({{"product", [&] { product(); }}});
                           }}});
        if (!source_.Failed() && !found) source_.Fail(QStringLiteral("there is no zel_xml element"));
        if (!source_.Failed()) placeInstances();
        if (cancelled_) return ReadResult::Failure(IoOutcome::Cancelled, L"reading was stopped");
        if (source_.Failed()) return ReadResult::Failure(IoOutcome::Damaged, source_.Error());

        ReadResult result;
        for (auto const& [name, texture] : textures_) result.materials.Add(texture);
        for (auto const& [name, material] : materials_) result.materials.Add(material);
        auto const parts = countParts(false);
        result.graphical = parts > 0 && parts == countParts(true);
        return result;
    }

private:
    std::size_t countParts(bool graphical) const
    {
        auto const& references = model_.GetReferences();
        return static_cast<std::size_t>(
            std::count_if(references.begin(), references.end(), [graphical](auto const& reference) {
                return reference->IsPart() && (!graphical || reference->IsGraphical());
            }));
    }

    void product()
    {
        model_.SetPID(source_.Text("pid"));
        model_.SetProductName(source_.Text("name"));
        source_.Children({{"information", [&] { information(); }},
                          {"texture", [&] { ReadTexture(source_, textures_); }},
                          {"material", [&] { ReadMaterial(source_, textures_, materials_); }},
                          {"reference", [&] { reference(); }},
                          {"instance", [&] { instance(nullptr); }},
                          {"visualisation", [&] { model_.SetSG(ReadVisualisation(source_, materials_)); }},
                          {"annotations", [&] { model_.SetPMI(ReadAnnotations(source_)); }}});
    }

    void information()
    {
        auto lines = std::make_shared<ZELDocumentInformation>();
        source_.Children({{"line", [&] { lines->Add(source_.Text("label"), source_.Text("value")); }}});
        model_.SetDocumentInformation(lines);
    }

    void reference()
    {
        if (request_.Report(static_cast<double>(source_.Offset()) / size_)) {
            cancelled_ = true;
            return source_.Fail(QStringLiteral("stopped"));
        }
        auto const kind = source_.Text("kind");
        auto const pid = source_.Text("pid");
        if (pid.empty()) return source_.Fail(QStringLiteral("a reference has no pid"));
        auto made = std::make_shared<ZELReference>(kindOf(kind), pid, source_.Text("name"));
        if (!references_.emplace(pid, made).second)
            return source_.Fail(QStringLiteral("two references have one pid"));
        made->SetStorageName(source_.Text("file"));
        made->SetGraphical(source_.Flag("graphical"));
        NarMeta::Properties properties;
        source_.Children(
            {{"property",
              [&] {
                  properties.push_back({source_.Text("name"), source_.Text("value")});
              }},
             {"body",
              [&] {
                  auto const ordinal = made->GetBodies().size();
                  made->AddBody(ReadBody(source_, NarMeta::HashId(made->GetUniqueID(), "body", ordinal)));
              }},
             {"exact", [&] { made->SetExactShape(exactShape()); }},
             {"entity",
              [&] { made->NameEntity(source_.Text("name"), source_.NumberOf<Id>("id").value_or(0)); }},
             {"instance",
              [&] {
                  if (made->GetKind() == ZELReference::Kind::Assembly)
                      instance(made);
                  else
                      source_.Fail(QStringLiteral("an instance stands in something that is no assembly"));
              }},
             {"visualisation", [&] { made->SetSG(ReadVisualisation(source_, materials_)); }},
             {"annotations", [&] { made->SetPmi(ReadAnnotations(source_)); }}});
        made->SetUserProperties(std::move(properties));
        model_.AddReference(made);
    }

    std::shared_ptr<ExactShape const> exactShape()
    {
        auto made = std::make_shared<ExactShape>();
        source_.Children({{"shape",
                           [&] {
                               auto const bytes = source_.Records<char>();
                               made->bytes.assign(bytes.begin(), bytes.end());
                           }},
                          {"faces", [&] { made->faces = source_.Array<Id>(); }}});
        return made;
    }

    ZELReference::Kind kindOf(std::wstring const& name)
    {
        if (name == L"part") return ZELReference::Kind::Part;
        if (name == L"assembly") return ZELReference::Kind::Assembly;
        if (name == L"missing") return ZELReference::Kind::Missing;
        source_.Fail(QStringLiteral("a reference is neither part, assembly nor missing"));
        return ZELReference::Kind::Part;
    }

    void instance(std::shared_ptr<ZELReference> const& owner)
    {
        auto& pending = pending_.emplace_back();
        pending.owner = owner;
        pending.of = source_.Text("of");
        pending.pid = source_.Text("pid");
        pending.name = source_.Text("name");
        source_.Colours(pending.colours);
        pending.hidden = source_.Flag("hidden");
        pending.suppressed = source_.Flag("suppressed");
        pending.line = source_.Line();
        source_.Children({{"transform", [&] { pending.matrix = source_.Tuple<16>(); }}});
    }

    void placeInstances()
    {
        for (auto const& pending : pending_) {
            auto const found = references_.find(pending.of);
            if (found == references_.end())
                return source_.FailAt(pending.line,
                                      QStringLiteral("an instance is of \"%1\", which is not there")
                                          .arg(QString::fromStdWString(pending.of)));
            auto made = std::make_shared<ZELInstance>(found->second, pending.pid, pending.name);
            made->SetColour(pending.colours.GetColour());
            made->SetAlphaColor(pending.colours.GetAlpha());
            if (pending.hidden) made->SetHidden(true);
            if (pending.suppressed) made->SetSuppressed(true);
            made->SetTransform(pending.matrix);
            if (pending.owner)
                pending.owner->AddInstance(made);
            else
                model_.AddRootInstance(made);
        }
    }

    XmlSource source_;
    double size_;
    ReadRequest const& request_;
    ZELProductStructure& model_;
    Textures textures_;
    Materials materials_;
    std::unordered_map<std::wstring, std::shared_ptr<ZELReference>> references_;
    std::deque<PendingInstance> pending_;
    bool cancelled_ = false;
};

} // namespace

ReadResult ReadZelXml(std::string_view text, ReadRequest const& request, ZELProductStructure& model,
                      std::string_view block)
{
    return ModelXml(text, request, model, block).Read();
}

FileFormat ZelXmlReader::Format() const
{
    return {L"ZEL XML model", {L"zel_xml", L"xkrm"}}; // the second: of a part by itself
}

Confidence ZelXmlReader::Recognise(std::string_view head, std::string_view extension) const
{
    auto const start = head.find('<');
    if (start == std::string_view::npos) return Confidence::No;
    if (head.find("<zel_xml") != std::string_view::npos) return Confidence::Certain;
    // In another encoding than UTF-8, or behind a very long comment.
    return extension == "zel_xml" || extension == "xkrm" ? Confidence::ByName : Confidence::No;
}

ReadResult ZelXmlReader::Read(ReadRequest const& request, ZELProductStructure& model) const
{
    QFile file(QFile::decodeName(request.path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        return ReadResult::Failure(IoOutcome::CannotRead, file.errorString().toStdWString());
    if (file.size() > LargestFile)
        return ReadResult::Failure(IoOutcome::Cancelled, L"the file is larger than 1 GiB");
    auto const text = file.readAll();
    if (text.size() != file.size())
        return ReadResult::Failure(IoOutcome::CannotRead, file.errorString().toStdWString());
    return ReadZelXml({text.constData(), static_cast<std::size_t>(text.size())}, request, model);
}

} // namespace NarMetaInfra
