/// The entity classes of composite objects, and how objects are made of them.
#pragma once

#include "Varnotix/catalogue/Catalogue.h"
#include "Varnotix/iod/DcmCompositeIE.h"
#include "Varnotix/iod/DcmIE.h"

#include <tuple>
#include <type_traits>

/// An entity that holds modules of these classes, in this order, after those of its base entity.
template <class BASE, class... MODULES>
class TEntity : public BASE
{
public:
    TEntity() : TEntity(nullptr) {}
    explicit TEntity(CDcmCompositeIE* owner) : BASE(owner) { (this->AddIeModule(std::get<MODULES>(m_modules)), ...); }
    /// A copy would hold the other's modules by pointer; use AssignModules.
    TEntity(const TEntity&) = delete;
    TEntity& operator=(const TEntity&) = delete;

    /// True when the entity holds a module of the class.
    template <class MODULE>
    static constexpr bool Holds()
    {
        if constexpr ((std::is_same_v<MODULE, MODULES> || ...))
        {
            return true;
        }
        else if constexpr (!std::is_same_v<BASE, CDcmIE>)
        {
            return BASE::template Holds<MODULE>();
        }
        return false;
    }

    /// The entity's module of a class. For a class that the entity does not hold it does not compile.
    template <class MODULE>
    MODULE& Module()
    {
        if constexpr ((std::is_same_v<MODULE, MODULES> || ...))
        {
            return std::get<MODULE>(m_modules);
        }
        else
        {
            return BASE::template Module<MODULE>();
        }
    }

    /// Assigns every module from the other's.
    void AssignModules(const TEntity& other)
    {
        if constexpr (!std::is_same_v<BASE, CDcmIE>)
        {
            BASE::AssignModules(other);
        }
        m_modules = other.m_modules;
    }

    /// Compares every module with the other's.
    bool EqualModules(const TEntity& other) const
    {
        if constexpr (!std::is_same_v<BASE, CDcmIE>)
        {
            return BASE::EqualModules(other) && m_modules == other.m_modules;
        }
        else
        {
            return m_modules == other.m_modules;
        }
    }

private:
    std::tuple<MODULES...> m_modules;
};

/// Defines a nested entity class. Its run-time class, which can be created by name, is in CompositeEntities.cpp.
#define DCM_ENTITY(Name, ...) \
    class VARNOTIX_EXPORT CDcmCompositeIE::Name : public TEntity<__VA_ARGS__> \
    { \
        DECLARE_DYNCREATE(Name) \
\
    public: \
        using TEntity::TEntity; \
    }

// clang-format off
DCM_ENTITY(composite_patient_ie, CDcmIE,
    CDcmPatientModule, CDcmClinicalTrialSubjectModule);
DCM_ENTITY(composite_study_ie, CDcmIE,
    CDcmGeneralStudyModule, CDcmClinicalTrialStudyModule, CDcmPatientStudyModule);
DCM_ENTITY(composite_series_ie, CDcmIE,
    CDcmGeneralSeriesModule, CDcmClinicalTrialSeriesModule);
DCM_ENTITY(series_ie_cr, CDcmCompositeIE::composite_series_ie,
    CDcmCRSeriesModule);
DCM_ENTITY(series_ie_nm, CDcmCompositeIE::composite_series_ie,
    CDcmNMPetOrientationModule);
DCM_ENTITY(composite_equipment_ie, CDcmIE,
    CDcmGeneralEquipmentModule);
DCM_ENTITY(equipment_ie_sc, CDcmCompositeIE::composite_equipment_ie,
    CDcmSCEquipmentModule);
DCM_ENTITY(composite_frameref_ie, CDcmIE,
    CDcmFrameOfReferenceModule);
DCM_ENTITY(frame_ie_us, CDcmCompositeIE::composite_frameref_ie,
    CDcmUSFrameOfReferenceModule, CDcmSynchronizationModule);
DCM_ENTITY(curve_ie_us, CDcmIE,
    CDcmCurveIdentificationModule, CDcmCurveModule, CDcmAudioModule);
DCM_ENTITY(composite_image_ie, CDcmIE,
    CDcmGeneralImageModule, CDcmImagePixelModule, CDcmSOPCommonModule);
DCM_ENTITY(image_ie_cr, CDcmCompositeIE::composite_image_ie,
    CDcmContrastBolusModule, CDcmCRImageModule, CDcmOverLayPlaneModule, CDcmCurveModule, CDcmModalityLUTModule,
    CDcmVioLutModule);
DCM_ENTITY(image_ie_ct_mr, CDcmCompositeIE::composite_image_ie,
    CDcmImagePlaneModule, CDcmContrastBolusModule, CDcmOverLayPlaneModule, CDcmVioLutModule);
DCM_ENTITY(image_ie_ct, CDcmCompositeIE::image_ie_ct_mr,
    CDcmCTImageModule);
DCM_ENTITY(image_ie_mr, CDcmCompositeIE::image_ie_ct_mr,
    CDcmMRImageModule);
DCM_ENTITY(image_ie_nm, CDcmCompositeIE::composite_image_ie,
    CDcmNMImagePixelModule, CDcmMultiFrameModule, CDcmNMMultiFrameModule, CDcmNMImageModule, CDcmNMIsotopeModule,
    CDcmNMDetectorModule, CDcmNMTomoModule, CDcmNMMultiGatedModule, CDcmNMPhaseModule, CDcmNMReconstructionModule,
    CDcmOverLayPlaneModule, CDcmMultiFrameOverlayModule, CDcmCurveModule, CDcmVioLutModule);
DCM_ENTITY(image_ie_sc, CDcmCompositeIE::composite_image_ie,
    CDcmSCImageModule, CDcmOverLayPlaneModule, CDcmModalityLUTModule, CDcmVioLutModule);
DCM_ENTITY(image_ie_sc_multi, CDcmCompositeIE::composite_image_ie,
    CDcmCineModule, CDcmMultiFrameModule, CDcmSCMultiFrameImageModule, CDcmSCMultiFrameVectorModule,
    CDcmSCImageModule, CDcmOverLayPlaneModule, CDcmVioLutModule);
DCM_ENTITY(composite_image_ie_us, CDcmCompositeIE::composite_image_ie,
    CDcmContrastBolusModule, CDcmPalleteColorLookUpModule, CDcmUSRegionCalibrationModule, CDcmUSImageModule,
    CDcmVioLutModule);
DCM_ENTITY(image_ie_us, CDcmCompositeIE::composite_image_ie_us,
    CDcmOverLayPlaneModule);
DCM_ENTITY(image_ie_us_multi, CDcmCompositeIE::composite_image_ie_us,
    CDcmCineModule, CDcmMultiFrameModule);
// clang-format on

/// A composite object that owns these entities, after those of its base object. It registers the modules of its base,
/// then those of its own entities, in this order.
template <class BASE, class... ENTITIES>
class TCompositeIod : public BASE
{
public:
    /// Concrete classes copy by AssignEntities.
    TCompositeIod(const TCompositeIod&) = delete;
    TCompositeIod& operator=(const TCompositeIod&) = delete;

    /// The object's entity of a class. For a class that the object lacks it does not compile.
    template <class ENTITY>
    ENTITY& Entity()
    {
        if constexpr ((std::is_same_v<ENTITY, ENTITIES> || ...))
        {
            return std::get<ENTITY>(m_entities);
        }
        else
        {
            return BASE::template Entity<ENTITY>();
        }
    }

    /// The object's module of a class, as in iod.Module<CDcmPatientModule>(); within a template that is
    /// iod.template Module<CDcmPatientModule>(). For a class that the object lacks it does not compile.
    template <class MODULE>
    MODULE& Module()
    {
        if constexpr ((ENTITIES::template Holds<MODULE>() || ...))
        {
            MODULE* module = nullptr;
            (FindIn<ENTITIES>(module), ...);
            return *module;
        }
        else
        {
            return BASE::template Module<MODULE>();
        }
    }

protected:
    TCompositeIod() : m_entities(OwnerOf<ENTITIES>(this)...) {}

    void InitializeIod() override
    {
        BASE::InitializeIod();
        (std::get<ENTITIES>(m_entities).AttachIE(), ...);
    }

    void AssignEntities(const TCompositeIod& other)
    {
        BASE::AssignEntities(other);
        (std::get<ENTITIES>(m_entities).AssignModules(std::get<ENTITIES>(other.m_entities)), ...);
    }

    /// Compares the modules of this class's own entities, not those of its base.
    bool EqualEntities(const TCompositeIod& other) const
    {
        return (std::get<ENTITIES>(m_entities).EqualModules(std::get<ENTITIES>(other.m_entities)) && ...);
    }

private:
    template <class ENTITY>
    static CDcmCompositeIE* OwnerOf(CDcmCompositeIE* owner)
    {
        return owner;
    }

    template <class ENTITY, class MODULE>
    void FindIn(MODULE*& module)
    {
        if constexpr (ENTITY::template Holds<MODULE>())
        {
            module = &std::get<ENTITY>(m_entities).template Module<MODULE>();
        }
    }

    std::tuple<ENTITIES...> m_entities;
};

/// In the body of a concrete object class: construction, assignment and run-time class. Assigning or constructing from
/// a CDcmCompositeIOD registers the object's own modules, empty, and copies the other's store, from which they take
/// their values: this is how a generic object that was read becomes a typed one.
#define DCM_COMPOSITE_IOD(Class) \
    DECLARE_DYNCREATE(Class) \
\
public: \
    Class(); \
    Class(const Class& other); \
    explicit Class(const CDcmCompositeIOD& other); \
    ~Class() override; \
    Class& operator=(const Class& other); \
    Class& operator=(const CDcmCompositeIOD& other);

/// In one source file: defines a class with DCM_COMPOSITE_IOD.
#define IMPLEMENT_DCM_COMPOSITE_IOD(Class, Base) \
    IMPLEMENT_DYNCREATE(Class, Base) \
    Class::Class() \
    { \
        Class::InitializeIod(); \
    } \
    Class::Class(const Class& other) : Class() \
    { \
        *this = other; \
    } \
    Class::Class(const CDcmCompositeIOD& other) : Class() \
    { \
        TakeStore(other); \
    } \
    Class::~Class() = default; \
    Class& Class::operator=(const Class& other) \
    { \
        if (this != &other) \
        { \
            EmptyIodModules(); /* A derived object has modules that are not assigned here. */ \
            AssignEntities(other); \
            TakeStore(other); \
        } \
        return *this; \
    } \
    Class& Class::operator=(const CDcmCompositeIOD& other) \
    { \
        if (this != &other) \
        { \
            InitializeIod(); \
            CDcmCompositeIOD::operator=(other); \
        } \
        return *this; \
    }
