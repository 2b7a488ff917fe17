#pragma once

namespace trendaro {

// Names on the session bus. docs/host-interface.md describes the members.

// The host: its well-known name and its object. A host that is given by reference may have any other.
inline constexpr char kHostService[] = "mervan.mrvInterface";
inline constexpr char kHostPath[] = "/mrvInterface";

// The host's interface. The database and its kernel are objects below the host's, with their name behind a
// "/", and their interfaces are named alike, with a ".".
inline constexpr char kHostInterface[] = "mervan.mrvInterface";
inline constexpr char kDatabaseObject[] = "DB";
inline constexpr char kKernelObject[] = "Kernel";

// The error of a call that the host refuses; its text is the number of the run-time error.
inline constexpr char kHostError[] = "mervan.mrvInterface.Error";

// The viewer's automation class.
inline constexpr char kWrapperService[] = "trendaro.WrapperClass";
inline constexpr char kWrapperPath[] = "/WrapperClass";

}  // namespace trendaro
