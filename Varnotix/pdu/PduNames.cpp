#include "Varnotix/pdu/PduNames.h"

#include <algorithm>
#include <iterator>

namespace Varnotix
{

namespace
{

struct SWord
{
    int code;
    const char* text;
};

template <class WORDS>
const char* Find(const WORDS& words, int code)
{
    const auto* const found =
        std::find_if(std::begin(words), std::end(words), [code](const SWord& word) { return word.code == code; });
    return found != std::end(words) ? found->text : "unknown";
}

/// The key of a reason: its meaning depends on the source.
constexpr int Reason(int source, int reason)
{
    return source * 256 + reason;
}

bool IsByte(int code)
{
    return code >= 0 && code <= 255;
}

constexpr SWord kTypes[] = {{PDU_ASSOCIATE_RQ, "A-ASSOCIATE-RQ"},
                            {PDU_ASSOCIATE_AC, "A-ASSOCIATE-AC"},
                            {PDU_ASSOCIATE_RJ, "A-ASSOCIATE-RJ"},
                            {PDU_DATA_TF, "P-DATA-TF"},
                            {PDU_RELEASE_RQ, "A-RELEASE-RQ"},
                            {PDU_RELEASE_RP, "A-RELEASE-RP"},
                            {PDU_ABORT, "A-ABORT"}};

constexpr SWord kRejectResults[] = {{1, "rejected permanently"}, {2, "rejected for now"}};

constexpr SWord kRejectSources[] = {
    {1, "service user"}, {2, "service provider (ACSE)"}, {3, "service provider (presentation)"}};

constexpr SWord kRejectReasons[] = {{Reason(1, 1), "no reason given"},
                                    {Reason(1, 2), "application context name not supported"},
                                    {Reason(1, 3), "calling AE title not recognized"},
                                    {Reason(1, 7), "called AE title not recognized"},
                                    {Reason(2, 1), "no reason given"},
                                    {Reason(2, 2), "protocol version not supported"},
                                    {Reason(3, 1), "temporary congestion"},
                                    {Reason(3, 2), "local limit exceeded"}};

constexpr SWord kAbortSources[] = {{0, "service user"}, {2, "service provider"}};

constexpr SWord kAbortReasons[] = {
    {Reason(2, 0), "reason not specified"},     {Reason(2, 1), "unrecognized PDU"},
    {Reason(2, 2), "unexpected PDU"},           {Reason(2, 4), "unrecognized PDU parameter"},
    {Reason(2, 5), "unexpected PDU parameter"}, {Reason(2, 6), "invalid PDU parameter value"}};

constexpr SWord kContextResults[] = {{0, "accepted"},
                                     {1, "rejected by the user"},
                                     {2, "rejected without reason"},
                                     {3, "abstract syntax not supported"},
                                     {4, "transfer syntaxes not supported"}};

} // namespace

const char* PduTypeName(int type)
{
    return Find(kTypes, type);
}

const char* RejectResultText(int result)
{
    return Find(kRejectResults, result);
}

const char* RejectSourceText(int source)
{
    return Find(kRejectSources, source);
}

const char* RejectReasonText(int source, int reason)
{
    return IsByte(source) && IsByte(reason) ? Find(kRejectReasons, Reason(source, reason)) : "unknown";
}

const char* AbortSourceText(int source)
{
    return Find(kAbortSources, source);
}

const char* AbortReasonText(int source, int reason)
{
    if (source == 0)
    {
        return "no reason given";
    }
    return IsByte(source) && IsByte(reason) ? Find(kAbortReasons, Reason(source, reason)) : "unknown";
}

const char* ContextResultText(int result)
{
    return Find(kContextResults, result);
}

} // namespace Varnotix
