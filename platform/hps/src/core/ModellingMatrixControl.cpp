#include <hps/SegmentKey.h>

namespace HPS
{
namespace
{

template <class F> void edit(Key const& key, F&& change)
{
    SegmentKey segment(key);
    MatrixKit matrix;
    segment.ShowModellingMatrix(matrix);
    change(matrix);
    segment.SetModellingMatrix(matrix);
}

} // namespace

ModellingMatrixControl& ModellingMatrixControl::SetElements(std::vector<float> const& elements)
{
    return SetElements(elements.size(), elements.data());
}

ModellingMatrixControl& ModellingMatrixControl::SetElements(std::size_t count, float const elements[])
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.SetElements(count, elements); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::SetElement(std::size_t index, float value)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.SetElement(index, value); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::Translate(double x, double y, double z)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.Translate(x, y, z); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::Rotate(double x, double y, double z)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.Rotate(x, y, z); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::RotateOffAxis(Vector const& axis, double degrees)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.RotateOffAxis(axis, degrees); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::Scale(double x, double y, double z)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.Scale(x, y, z); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::Concatenate(MatrixKit const& after)
{
    edit(segment_, [&](MatrixKit& matrix) { matrix.Concatenate(after); });
    return *this;
}

ModellingMatrixControl& ModellingMatrixControl::UnsetEverything()
{
    SegmentKey(segment_).UnsetModellingMatrix();
    return *this;
}

bool ModellingMatrixControl::Show(MatrixKit& matrix) const
{
    return SegmentKey(segment_).ShowModellingMatrix(matrix);
}

bool ModellingMatrixControl::ShowElements(std::vector<float>& elements) const
{
    MatrixKit matrix;
    return Show(matrix) && matrix.ShowElements(elements);
}

} // namespace HPS
