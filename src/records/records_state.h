// records_state.h - the records of the program, and how a session initialises them.
//
// Each record is declared in the header of its structure:
//   session.cpp        session
//   measdb.cpp         MeasDB
//   model_records.cpp  FModelParam, TheoDispInfo
//   inv_records.cpp    InvParam, SMPParam
#pragma once

namespace sondera {

/// The session without a board, an empty database, first values in the records of models and results.
void ResetRecordsState();

}  // namespace sondera
