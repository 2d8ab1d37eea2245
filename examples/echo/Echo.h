/// The two sides of the Verification service.
#pragma once

#include "Connection.h"

#include <string>

struct SEchoOptions
{
    std::string host = "localhost";
    std::string port;
    std::string calledTitle = "ANY-SCP";
    std::string callingTitle = "VARNOTIX";
    /// Limit on each wait for the other side.
    std::chrono::seconds timeout{10};

    // Of the listener.

    /// The only called title that is accepted; empty accepts every title.
    std::string ownTitle;
    /// Number of connections after which it ends; 0 for no end.
    int count = 0;
    /// Ends when there was no call for this time; 0 for no end.
    std::chrono::seconds idle{0};
};

/// Asks for an association, sends one C-ECHO, prints the reply and releases. Throws CEchoFailure.
void RunClient(const SEchoOptions& options);

/// Prints its port, then answers one association after the other. An association that fails does not end it.
/// Throws CEchoFailure when it cannot listen.
void RunListener(const SEchoOptions& options);
