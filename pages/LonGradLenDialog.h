// The page for maximum lengths of grades: a row for each gradient.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedGrid.h"

class CLonGradLenDialogCallback : public CDSPageCallback<&CDesignSpecification::LonGradMaxLen> {
    using CDSPageCallback::CDSPageCallback;
};

// One item of the gradient menu.
struct GradientChoice {
    double gradient = 0; // %
    bool present = false;
};
// The standard gradients and the present ones. These stand in ascending order, save that one that
// is not standard stands behind all that were present before it.
std::vector<GradientChoice> GradientChoices(const CArray<double>& present);

class CLonGradLenDialog : public CCriterionPage<CDSLonGradMaxLen> {
public:
    CLonGradLenDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSLonGradMaxLen& criterion) override;
    bool StoreStep(CDSLonGradMaxLen& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    void InsertGradient(int at, double gradient);
    void AddGradient(double gradient); // below the lower ones
    void RemoveGradient(double gradient);
    // What a row's gradient is stored as, and what its header says.
    double GradientOf(int row) const;
    double ShownGradientOf(int row) const;
    CArray<double> Gradients() const;

    void AppendGradients(CMenu& menu, UINT firstId) const;
    void Choose(int index);
    void AskForGradient();

    CLonGradLenDialogCallback m_callback{this};
    CSpeedGrid m_grid;
    CString m_source;
};
