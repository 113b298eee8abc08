#pragma once

#include "XmlSink.h"
#include "XmlSource.h"

#include <narmeta/narmeta.h>

#include <set>

// The parts that a zel_xml file is made of, each with its writer and its reader. A writer writes children of
// the open element; a reader reads what is below it. The form is described in platform/narmeta/zel_xml.md.
namespace NarMetaInfra
{

/// Materials by name, while a file is read.
using Materials = std::map<std::wstring, std::shared_ptr<NarMetaVisu::Material>>;
using Textures = std::map<std::wstring, std::shared_ptr<NarMetaVisu::Texture>>;

void WriteBody(XmlSink& sink, BrepBody const& body);
/// @p fallback serves for an id that the file leaves out.
BrepBody ReadBody(XmlSource& source, Id fallback);

void WriteVisualisation(XmlSink& sink, NarMetaVisu::SGContainer const& container);
std::shared_ptr<NarMetaVisu::SGContainer> ReadVisualisation(XmlSource& source, Materials const& materials);
void CollectMaterials(NarMetaVisu::SGContainer const& container, Materials& materials);

void WriteAnnotations(XmlSink& sink, PMIContainer const& container);
std::shared_ptr<PMIContainer> ReadAnnotations(XmlSource& source);

/// With the textures that they use.
void WriteMaterials(XmlSink& sink, Materials const& materials);
void ReadTexture(XmlSource& source, Textures& textures);
void ReadMaterial(XmlSource& source, Textures const& textures, Materials& materials);

} // namespace NarMetaInfra
