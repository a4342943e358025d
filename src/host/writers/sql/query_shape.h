// Whether the tokens of a view's statement form one query that a database accepts.
#pragma once

#include <span>
#include <string>

#include "host/writers/sql/statement_reading.h"

struct SqlDialect;

// Whether the word means the same in all dialects but, where `dialect` is not null, that one.
bool isSharedWord(const StatementToken& token, const SqlDialect* dialect = nullptr);

// Returns why the tokens are not exactly one complete query; empty if they are. Anything else must never be
// written: only a single query after CREATE VIEW does nothing but create a view.
std::string findQueryObstacle(std::span<const StatementToken> tokens);

// Why the dialect surely refuses a query without the former obstacles; empty: it may take it.
std::string findShapeObstacle(std::span<const StatementToken> tokens, const SqlDialect& dialect);
