#pragma once

namespace trendaro {

struct Model;

// Commands on the host's database. They have no trap: a call that the host refuses is thrown as RunTimeError
// and ends the command.

// Asks and empties the database; nothing else changes.
void mnuClearDB(Model& model);

// The host's configuration of the database. After a change of its size the program must start again.
void mnuDBConfig(Model& model);

// The host's export dialog, with the plots' channels selected that hold samples.
void mnuDBExport(Model& model);

// Asks for the first database channel of the import range and moves the plots there.
void mnuDBOffset(Model& model);

}  // namespace trendaro
