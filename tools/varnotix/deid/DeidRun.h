/// De-identifies files.
#pragma once

#include "deid/BlackOut.h"
#include "deid/Deidentifier.h"
#include "deid/RecordFile.h"
#include "run/InputRun.h"

#include <mutex>
#include <set>
#include <string>
#include <vector>

/// The status of an input that was refused.
constexpr int kStatusRefused = STATUS_UNREADABLE;

/// De-identifies the inputs of a run. The outputs are named after their new identity: PATIENT/STUDY/SERIES/OBJECT.dcm.
/// Several threads may use it.
class CDeidRun
{
public:
    /// @param profile and records must outlive the run.
    CDeidRun(const SDeidProfile& profile, const CDeidKey& key, const CString& folder, CRecordFile& records)
        : m_profile(profile), m_key(key), m_folder(folder), m_records(records)
    {
    }

    /// Takes objects whose pixels may identify the patient.
    void AcceptPixels() { m_acceptsPixels = true; }
    void BlackOutRectangle(const SRectangle& rectangle) { m_rectangles.push_back(rectangle); }

    /// Reads, de-identifies and writes one input.
    /// @return the exit status.
    int Do(const SJob& job);

private:
    int Write(CDcmIOD& object, SDeidOutcome& outcome, const CReport& report);
    CString RefusalOf(const CDcmIOD& object, const std::optional<SNewPatient>& patient) const;
    CString PathOf(const CDcmElementSet& store, const CString& input) const;

    const SDeidProfile& m_profile;
    const CDeidKey& m_key;
    CString m_folder;
    CRecordFile& m_records;
    bool m_acceptsPixels = false;
    std::vector<SRectangle> m_rectangles;
    std::mutex m_mutex;
    std::set<std::string> m_folders; // Those that exist by now.
    std::set<std::string> m_paths;   // Of the outputs, so that no two inputs go to one.
};
