#pragma once
#include <hps/Key.h>
#include <hps/MatrixKit.h>

namespace HPS
{

// The matrix from a segment's own coordinates to those of its owner. Each change is written at once; where no
// matrix is set, a change starts from the identity.
class ModellingMatrixControl
{
public:
    explicit ModellingMatrixControl(Key const& segment) : segment_(segment) {}

    ModellingMatrixControl& SetElements(std::vector<float> const& elements);
    ModellingMatrixControl& SetElements(std::size_t count, float const elements[]);
    ModellingMatrixControl& SetElement(std::size_t index, float value);
    ModellingMatrixControl& Translate(double x, double y, double z);
    ModellingMatrixControl& Rotate(double x, double y, double z); // degrees
    ModellingMatrixControl& RotateOffAxis(Vector const& axis, double degrees);
    ModellingMatrixControl& Scale(double x, double y, double z);
    ModellingMatrixControl& Concatenate(MatrixKit const& matrix);
    ModellingMatrixControl& UnsetEverything();
    bool Show(MatrixKit& matrix) const;
    bool ShowElements(std::vector<float>& elements) const;

private:
    Key segment_;
};

} // namespace HPS
