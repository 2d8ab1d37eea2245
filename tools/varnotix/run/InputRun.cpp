#include "run/InputRun.h"

#include "console/Progress.h"
#include "files/Input.h"
#include "files/OutputFolder.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
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

/// Runs jobs on threads of its own, and prints what they print in the order of the inputs.
class CParallelRun
{
public:
    CParallelRun(const SInputs& inputs, const CReport& report, const CJobFunction& job, int threads);
    ~CParallelRun();
    CParallelRun(const CParallelRun&) = delete;
    CParallelRun& operator=(const CParallelRun&) = delete;

    SRunResult Run();

private:
    struct STask
    {
        SInput input = {};
        CConsole console{CConsole::EMode::Kept};
        int status = STATUS_DONE;
        std::exception_ptr failure = nullptr;
        bool isDone = false;
    };

    void Work();
    void Fill(CInputWalk& walk);

    const SInputs& m_inputs;
    const CReport& m_report;
    const CJobFunction& m_job;
    std::size_t m_limit; // Of tasks that were begun and are not printed; an early slow one must not let all wait.
    std::mutex m_mutex;
    std::condition_variable m_added;
    std::condition_variable m_done;
    std::deque<std::unique_ptr<STask>> m_tasks; // In the order of the inputs.
    std::deque<STask*> m_waiting;               // Those of m_tasks that no thread has taken.
    bool m_isOver = false;
    std::vector<std::jthread> m_threads;
};

CParallelRun::CParallelRun(const SInputs& inputs, const CReport& report, const CJobFunction& job, int threads)
    : m_inputs(inputs), m_report(report), m_job(job), m_limit(static_cast<std::size_t>(threads) * 4)
{
    for (int i = 0; i < threads; ++i)
    {
        m_threads.emplace_back([this] { Work(); });
    }
}

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
        m_tasks.pop_front();
    }
}

/// Only this thread touches m_tasks; the lock is for m_waiting.
void CParallelRun::Fill(CInputWalk& walk)
{
    while (m_tasks.size() < m_limit)
    {
        auto task = std::make_unique<STask>();
        if (!walk.Next(task->input))
        {
            return;
        }
        m_tasks.push_back(std::move(task));
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(m_tasks.back().get());
        m_added.notify_one();
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
        try
        {
            const CReport report(m_report, task.console);
            task.status = DoJob(m_inputs, m_job, {task.input, task.console, report});
        }
        catch (...)
        {
            task.failure = std::current_exception();
        }
        lock.lock();
        task.isDone = true;
        m_done.notify_one();
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
