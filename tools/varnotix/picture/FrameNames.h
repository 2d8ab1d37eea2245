/// Names of the files that frames go to.
#pragma once

#include "Varnotix/Varnotix.h"

#include <map>
#include <mutex>
#include <string>

/// A pattern with fields in braces: "{uid}-{frame}". It may have slashes, which make folders.
class CFrameNames
{
public:
    explicit CFrameNames(const CString& pattern) : m_pattern(pattern) {}

    /// Why the pattern cannot be used; empty when it can.
    CString Refusal() const;

    /// The name of a frame's file. The pattern must be one without a refusal.
    /// @param input the path of the object's file.
    /// @param frame counted from 1.
    /// @param name receives the name, without extension.
    /// @return empty, or which value the object lacks.
    CString Make(const CDcmElementSet& store, const CString& input, std::size_t frame, CString& name) const;

    /// False when all frames of an object would have one name.
    bool HasFrame() const { return m_pattern.Find("{frame}") >= 0; }

private:
    CString m_pattern;
};

/// The files that a run has written, so that no object replaces the frames of another. Threads may share it.
class CTakenNames
{
public:
    /// Takes a path for a frame.
    /// @return empty, or the owner that has taken it before.
    CString Take(const CString& path, const CString& owner) { return Take(m_frames, path, owner); }

    /// Takes all paths that differ from one in the number of the frame only. Threads that work on objects with the same
    /// names would otherwise write frames in turns.
    /// @return empty, or the object that has taken them before.
    CString TakeAll(const CString& path, const CString& owner) { return Take(m_objects, path, owner); }

private:
    using COwners = std::map<std::string, CString>;

    CString Take(COwners& owners, const CString& path, const CString& owner);

    std::mutex m_mutex;
    COwners m_frames;
    COwners m_objects;
};
