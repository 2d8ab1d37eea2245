#include "run/InputRun.h"

#include "console/Progress.h"
#include "files/FileKinds.h"
#include "files/Input.h"
#include "files/OutputFolder.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <system_error>
#include <thread>

namespace
{

using CJobFunction = std::function<int(const SJob&)>;

/// The status of a file that is left out.
constexpr int kSkipped = -1;

int DoJob(const SInputs& inputs, const CJobFunction& job, const SJob& what)
{
    const SInput& input = what.input;
    if (!input.fault.IsEmpty())
    {
        what.report.Error(input.fault);
        return input.status;
    }
    int status = STATUS_UNREADABLE;
    const auto work = [&]
    {
        if (input.isFound && !inputs.takesAnyFile && !IsDicomFile(input.path))
        {
            what.report.Detail(input.path + ": skipped, because it is not DICOM");
            status = kSkipped;
            return true;
        }
        if (inputs.intoFolder && !input.output.IsEmpty())
        {
            const CString fault = MakeFolder(FolderNameOf(input.output));
            if (!fault.IsEmpty())
            {
                what.report.Error(fault);
                status = STATUS_UNWRITTEN;
                return true;
            }
        }
        status = job(what);
        return true;
    };
    return ReportReadFailures(input.path, what.report, work) ? status : STATUS_UNREADABLE;
}

void Count(SRunResult& result, int status)
{
    if (status == kSkipped)
    {
        ++result.skipped;
        return;
    }
    ++result.inputs;
    result.failed += status >= STATUS_UNREADABLE ? 1 : 0;
    result.status = std::max(result.status, status);
}

/// Runs jobs on threads of its own, and prints what they print in the order of the inputs. Inputs that are one file are
/// worked on one after another: an edit in place must not meet another one.
class CParallelRun
{
public:
    /// @param threads how many there may be, at least 1.
    CParallelRun(const SInputs& inputs, const CReport& report, const CJobFunction& job, int threads)
        : m_inputs(inputs), m_report(report), m_job(job), m_mostThreads(static_cast<std::size_t>(threads))
    {
    }
    ~CParallelRun();
    CParallelRun(const CParallelRun&) = delete;
    CParallelRun& operator=(const CParallelRun&) = delete;

    SRunResult Run();

private:
    struct STask
    {
        SInput input = {};
        std::string file = {}; // The same for all paths of a file.
        CConsole console{CConsole::EMode::Kept};
        int status = STATUS_DONE;
        std::exception_ptr failure = nullptr;
        bool isDone = false;
    };

    void Work();
    void Do(STask& task) const;
    void Fill(CInputWalk& walk);
    bool TakeNext(CInputWalk& walk);
    void StartThread();

    const SInputs& m_inputs;
    const CReport& m_report;
    const CJobFunction& m_job;
    std::size_t m_mostThreads;
    std::mutex m_mutex;
    std::condition_variable m_added;
    std::condition_variable m_done;
    std::deque<std::unique_ptr<STask>> m_tasks; // In the order of the inputs.
    std::set<std::string> m_files;              // Those of m_tasks.
    std::unique_ptr<STask> m_next;              // The next one, which waits for another of its file.
    std::deque<STask*> m_waiting;               // Those of m_tasks that no thread has taken.
    bool m_isOver = false;
    std::vector<std::jthread> m_threads;
};

CParallelRun::~CParallelRun()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_added.notify_all();
    m_threads.clear(); // Joins them: each ends the job that it has.
}

SRunResult CParallelRun::Run()
{
    SRunResult result;
    CInputWalk walk(m_inputs);
    CProgress progress(walk.Count(), m_report);
    for (std::size_t step = 0;; ++step)
    {
        progress.Step(step);
        Fill(walk);
        if (m_tasks.empty())
        {
            return result;
        }
        STask& first = *m_tasks.front();
        {
            std::unique_lock lock(m_mutex);
            m_done.wait(lock, [&] { return first.isDone; });
        }
        first.console.Release();
        if (first.failure)
        {
            std::rethrow_exception(first.failure);
        }
        Count(result, first.status);
        m_files.erase(first.file);
        m_tasks.pop_front();
    }
}

/// Only this thread touches m_tasks; the lock is for m_waiting.
void CParallelRun::Fill(CInputWalk& walk)
{
    // Tasks that were begun and are not printed; an early slow one must not let all threads wait.
    const std::size_t most = m_mostThreads * 4;
    while (m_tasks.size() < most && TakeNext(walk))
    {
        STask& task = *m_tasks.back();
        StartThread();
        if (m_threads.empty())
        {
            Do(task);
            task.isDone = true;
            continue;
        }
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(&task);
        m_added.notify_one();
    }
}

/// Makes the next input a task.
/// @return false when there is none, or its file is that of another task.
bool CParallelRun::TakeNext(CInputWalk& walk)
{
    if (m_next == nullptr)
    {
        auto task = std::make_unique<STask>();
        if (!walk.Next(task->input))
        {
            return false;
        }
        task->file = FileKey(task->input.path);
        m_next = std::move(task);
    }
    if (!m_files.insert(m_next->file).second)
    {
        return false;
    }
    m_tasks.push_back(std::move(m_next));
    return true;
}

/// Adds a thread where there are fewer than wanted, and than tasks. The run goes on with those that the system grants,
/// or with none.
void CParallelRun::StartThread()
{
    if (m_threads.size() >= std::min(m_mostThreads, m_tasks.size()))
    {
        return;
    }
    try
    {
        m_threads.emplace_back([this] { Work(); });
    }
    catch (const std::system_error&)
    {
        m_mostThreads = std::max<std::size_t>(m_threads.size(), 1);
    }
}

void CParallelRun::Work()
{
    std::unique_lock lock(m_mutex);
    for (;;)
    {
        m_added.wait(lock, [&] { return m_isOver || !m_waiting.empty(); });
        if (m_isOver)
        {
            return;
        }
        STask& task = *m_waiting.front();
        m_waiting.pop_front();
        lock.unlock();
        Do(task);
        lock.lock();
        task.isDone = true;
        m_done.notify_one();
    }
}

void CParallelRun::Do(STask& task) const
{
    try
    {
        const CReport report(m_report, task.console);
        task.status = DoJob(m_inputs, m_job, {task.input, task.console, report});
    }
    catch (...)
    {
        task.failure = std::current_exception();
    }
}

SRunResult RunOneByOne(const SInputs& inputs, const CReport& report, const CJobFunction& job)
{
    SRunResult result;
    CInputWalk walk(inputs);
    CProgress progress(walk.Count(), report);
    CConsole console;
    const CReport onConsole(report, console);
    SInput input;
    for (std::size_t step = 0; walk.Next(input); ++step)
    {
        progress.Step(step);
        Count(result, DoJob(inputs, job, {input, console, onConsole}));
        console.Flush();
    }
    return result;
}

int ThreadsFor(const SInputs& inputs)
{
    const bool isSingle = inputs.names.size() == 1 && !inputs.entersFolders;
    if (isSingle || ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        return 1;
    }
    return inputs.jobs == 0 ? std::max(1, static_cast<int>(std::thread::hardware_concurrency())) : inputs.jobs;
}

} // namespace

SRunResult RunJobs(const SInputs& inputs, const CReport& report, const std::function<int(const SJob&)>& job)
{
    const int threads = ThreadsFor(inputs);
    return threads == 1 ? RunOneByOne(inputs, report, job) : CParallelRun(inputs, report, job, threads).Run();
}

int RunInputs(const SInputs& inputs, const CReport& report, const char* failure,
              const std::function<int(const SJob&)>& job)
{
    const SRunResult result = RunJobs(inputs, report, job);
    CString summary;
    if (result.failed > 0 && result.inputs > 1)
    {
        summary.Format("%d of %d inputs %s", result.failed, result.inputs, failure);
        report.Say(summary);
    }
    if (result.inputs == 0)
    {
        report.Error(result.skipped == 0 ? CString("there are no files in the folders")
                                         : CString("none of the files in the folders is DICOM"));
        return STATUS_UNREADABLE;
    }
    if (result.skipped > 0)
    {
        summary.Format(result.skipped == 1 ? "%d file in the folders is not DICOM, and was skipped"
                                           : "%d files in the folders are not DICOM, and were skipped",
                       result.skipped);
        report.Say(summary);
    }
    return result.status;
}
