// Whether what a view's statement says is one query that a database takes, as far as its tokens tell.
#pragma once

#include <span>
#include <string>

#include "host/writers/sql/statement_reading.h"

struct SqlDialect;

// Whether the word means the same in all dialects but, where `dialect` is not null, that one.
bool isSharedWord(const StatementToken& token, const SqlDialect* dialect = nullptr);

// Why the tokens are not one whole query that every parser can come to the end of; empty: they are. What is
// not must never be written: only one query behind CREATE VIEW does nothing but make a view.
std::string findQueryObstacle(std::span<const StatementToken> tokens);

// Why the dialect surely refuses a query without the former obstacles; empty: it may take it.
std::string findShapeObstacle(std::span<const StatementToken> tokens, const SqlDialect& dialect);
