#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hps/ApplicationWindowKey.h>
#include <hps/Factory.h>
#include <hps/SprocketPath.h>
#include <hps/hps.h>

// A small scene as the product builds it: a part in the model's library, shown twice through instances.
struct Bench {
    HPS::Canvas canvas = HPS::Factory::CreateOffScreenCanvas(200, 100);
    HPS::View view = HPS::Factory::CreateView();
    HPS::Model model = HPS::Factory::CreateModel("model");
    HPS::SegmentKey top = model.GetSegmentKey();
    HPS::SegmentKey part = model.GetLibraryKey().Subsegment("part");
    HPS::SegmentKey body = part.Subsegment("body");
    HPS::ShellKey shell = body.InsertShell({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2});
    HPS::SegmentKey instance = top.Subsegment("instance"), other = top.Subsegment("other");
    HPS::IncludeKey include = instance.IncludeSegment(part), otherInclude = other.IncludeSegment(part);
    HPS::PortfolioKey portfolio = model.GetPortfolioKey();

    Bench()
    {
        view.AttachModel(model);
        canvas.AttachViewAsLayout(view);
    }
    ~Bench()
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }
    Bench(Bench const&) = delete;
    Bench& operator=(Bench const&) = delete;

    HPS::WindowKey window() const { return canvas.GetWindowKey(); }
    HPS::KeyPath modelPath() const
    {
        return HPS::SprocketPath(canvas, canvas.GetAttachedLayout(), view, model).GetKeyPath();
    }
    HPS::KeyPath shellPath() const
    {
        return modelPath().PushFront(HPS::KeyPath(HPS::KeyArray{shell, body, part, include, instance}));
    }
};

// One operation that the product calls: who calls it, and what they rely on.
struct Operation {
    char const* name;
    char const* caller;
    void (*check)(Bench&);
};
inline void PrintTo(Operation const& row, std::ostream* out)
{
    *out << row.name << ", called by: " << row.caller;
}
using OperationRows = std::vector<Operation>;

OperationRows structureOperations();
OperationRows attributeOperations();
OperationRows geometryOperations();
OperationRows portfolioOperations();
OperationRows pathOperations();
OperationRows windowOperations();
