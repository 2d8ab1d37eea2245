/// The Basic Application Level Confidentiality Profile, applied to an object (PS3.15 Annex E).
#pragma once

#include "deid/DeidRecord.h"
#include "deid/KnownTexts.h"
#include "deid/Patients.h"
#include "deid/SafePrivate.h"
#include "object/ObjectRules.h"

#include <map>
#include <string>
#include <tuple>

/// What a run applies to every object.
struct SDeidProfile
{
    unsigned options = 0; ///< Values of EProfileOption.
    bool keepsDocuments = false;
    const Varnotix::CUidMap& uids;
    const CPatients& patients;
    const CSafePrivate& safePrivate;
};

/// Applies the profile to one object.
class CDeidentifier
{
public:
    CDeidentifier(const SDeidProfile& profile, const SNewPatient& patient, CDeidRecord& record)
        : m_profile(profile), m_patient(patient), m_record(record)
    {
    }

    /// Changes the data set. File meta information stays as it is.
    void Apply(CDcmElementSet& store);

    /// The texts that the object had and must not have any more.
    const CKnownTexts& Known() const { return m_known; }

private:
    using EAction = Varnotix::EProfileAction;
    using SPlace = Varnotix::SWalkPlace;

    Varnotix::EWalk Visit(const SPlace& place);
    Varnotix::EWalk VisitPrivate(const SPlace& place);
    Varnotix::EWalk Do(EAction action, const SPlace& place);
    Varnotix::EWalk Set(EDeidDone done, std::string_view text, const SPlace& place);
    Varnotix::EWalk Clean(const SPlace& place);
    Varnotix::EWalk MakeDummy(const SPlace& place);
    Varnotix::EWalk Leave(const SPlace& place);
    EAction ActionFor(const SPlace& place, unsigned options) const;
    EAction UnlistedAction(const CDcmElement& element, unsigned options) const;

    const SDeidProfile& m_profile;
    const SNewPatient& m_patient;
    CDeidRecord& m_record;
    CKnownTexts m_known;
    CWalkCharacters m_characters;
    const CAttributeRules* m_rules = nullptr; // Of the object's class, if it is known.
    /// Of the blocks of private elements, by set, item, group and block; a creator comes before its block.
    std::map<std::tuple<const CDcmElementSet*, int, int, int>, std::string> m_creators;
    bool m_isDocument = false; // A document that a person has read.
    // Steps of the path to the sequence whose items are made dummies or are cleaned; 0 outside of one.
    std::size_t m_dummyDepth = 0;
    std::size_t m_cleanDepth = 0;
};
