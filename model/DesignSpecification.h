// One design specification (设计规范): a style with a name, an identity and thirteen criteria.
#pragma once

#include "base/Export.h"
#include "base/NoCase.h"
#include "base/Signal.h"
#include "model/BeelineLen.h"
#include "model/CircularCurveRad.h"
#include "model/CurveMinLen.h"
#include "model/CurveWidening.h"
#include "model/LonGrad.h"
#include "model/LonGradLen.h"
#include "model/MaxSuperElevation.h"
#include "model/ResultantGrad.h"
#include "model/SuperElevation.h"
#include "model/TransitionCurveMinLen.h"
#include "model/VerticalCurve.h"
#include "platform/vmrd/VMRDEnv/Style.h"

class AFX_EXT_CLASS CDesignSpecification : public CStyle {
    DECLARE_DYNAMIC(CDesignSpecification)

private:
    CString m_strName; // unique in its library
    designspec::NoCaseKey m_nameKey;
    GUID m_id;

public:
    // Public: other modules read the limits here and query the tables.
    CDSBeelineLen BeelineLen;
    CDSCircularCurveRad CircularCurveRad;
    CDSCurveMinLen CurveMinLen;
    CSmallAngleCurveMinLen SmallAngleCurveMinLen;
    CTransitionCurveMinLen TransitionCurveMinLen;
    CDSLonGrad LonGrad;
    CDSMaxResultantGrad MaxResultantGrad;
    CDSLonGradMaxLen LonGradMaxLen;
    CDSLonGradMinLen LonGradMinLen;
    CDSVerticalCurveMinRadAndLen VerticalCurveMinRadAndLen;
    CDSMaxSuperElevation MaxSuperElev;
    CDSSuperElevation SuperElevation;
    CDSCurveWidening CurveWidening;

    // No name, a new identity, and the built-in limits of a city-road design standard.
    CDesignSpecification();
    // A copy is the same specification: name, identity and criteria are the source's.
    CDesignSpecification(const CDesignSpecification& other);
    const CDesignSpecification& operator=(const CDesignSpecification& other);
    ~CDesignSpecification() override;

    CString Name() const override;
    GUID ID() const override;
    void SetName(const wchar_t* name); // the library sees to it that names are unique
    // Quicker than to ask for the identity, or for the name, which this is without its case.
    bool HasID(const GUID& id) const { return m_id == id; }
    const designspec::NoCaseKey& NameKey() const { return m_nameKey; }
    // Told whenever name or identity may have changed. Nobody listens to a copy.
    [[nodiscard]] designspec::Connection ConnectIdentity(designspec::Signal<>::Function listener);

    // Takes the other's criteria and what else it holds; name and identity stay.
    void CopyCriteria(const CDesignSpecification& other);
    // What else its file holds (model/UnknownContent.h); nearly always nothing.
    const std::string& Unknown() const { return m_unknown; }
    void SetUnknown(const std::string& unknown) { m_unknown = unknown; }
    // True when name, identity, all criteria and what else they hold are the same.
    bool operator==(const CDesignSpecification& other) const;

    // Stores into the specification's own element, or loads from it. A missing criterion is reset
    // to the built-in limits; a missing name leaves the name, a missing or malformed identity
    // gives a fresh one. What this program does not know is kept, and stored in its place.
    void DoPropExchange(CXTPPropExchange* pPX);

private:
    struct OwnSignal : designspec::Signal<> {
        OwnSignal() = default;
        // g++ wants the base named, clang-tidy does not.
        OwnSignal(const OwnSignal&) : Signal() {} // NOLINT(readability-redundant-member-init)
        OwnSignal& operator=(const OwnSignal&) = delete;
    };
    void ExchangeAll(CXTPPropExchange* pPX); // all that is known

    // Behind the criteria: other modules know where those lie.
    std::string m_unknown;
    OwnSignal m_identityChanged;
};
