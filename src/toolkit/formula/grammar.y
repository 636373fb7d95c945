/* grammar.y: the formula grammar. Bison builds the LALR(1) tables from it at build time; the
   precedence declarations below settle every conflict the way the formula language requires. */
%require "3.2"
%define api.pure full
%define api.prefix {qmk_formula_}
%define api.token.prefix {TOK_}
%define api.value.type {qmk::toolkit::formula::CExtFormulaItem*}
%parse-param {qmk::toolkit::formula::CExtFormulaScanner& scanner}
%lex-param {qmk::toolkit::formula::CExtFormulaScanner& scanner}

%code requires {
#include "toolkit/formula/scanner.h"
}

%code {
#include "toolkit/formula/grammar_actions.h"

// The parser's stacks never grow: they start at the limit.
#define YYINITDEPTH 500
#define YYMAXDEPTH 500

namespace {
using namespace qmk::toolkit::formula;

int qmk_formula_lex(CExtFormulaItem** value, CExtFormulaScanner& scanner);

void qmk_formula_error(CExtFormulaScanner&, const char* message) {
  throw FormulaSyntaxError{ParserMessage(message)};
}
}  // namespace
}

%token REAL INTEGER STRING IDENTIFIER GE LE NE

/* Weakest first. A blank between two expressions is the intersection operator. */
%right ' '
%left ':'
%right '='
%left '&' NE
%left '<' '>' LE GE
%left '+' '-'
%left '*' '/'
%left '%'
%left '^'

%%

goal: '=' expr                { scanner.SetRoot($2); }
    ;

expr: primary
    | expr '*' expr           { $$ = Binary($2, kKindMultiply, $1, $3); }
    | expr '/' expr           { $$ = Binary($2, kKindDivide, $1, $3); }
    | expr '+' expr           { $$ = Binary($2, kKindAdd, $1, $3); }
    | expr '-' expr           { $$ = Binary($2, kKindSubtract, $1, $3); }
    | expr '<' expr           { $$ = Binary($2, kKindLess, $1, $3); }
    | expr '>' expr           { $$ = Binary($2, kKindGreater, $1, $3); }
    | expr GE expr            { $$ = Binary($2, kKindGreaterOrEqual, $1, $3); }
    | expr LE expr            { $$ = Binary($2, kKindLessOrEqual, $1, $3); }
    | expr NE expr            { $$ = Binary($2, kKindNotEqual, $1, $3); }
    | expr '&' expr           { $$ = Binary($2, kKindConcatenate, $1, $3); }
    | expr '^' expr           { $$ = Binary($2, kKindPower, $1, $3); }
    | expr '=' expr           { $$ = Binary($2, kKindEqual, $1, $3); }
    | expr ' ' expr           { $$ = Intersection($2, $1, $3); }
    | expr ':' expr           { $$ = Range(scanner, $1, $3); }
    | expr ' '                { $$ = $1; }
    | ' ' expr                { $$ = $2; }
    | ' ' ' '                 { $$ = $1; }
    | expr '%'                { $$ = Unary($2, kKindPercent, $1, false); }
    | '%' expr                { $$ = Unary($1, kKindPercent, $2, true); }
    ;

primary: atom
    | '+' primary             { $$ = $2; }
    | '-' primary             { $$ = Unary($1, kKindNegate, $2, true); }
    ;

literal: INTEGER              { $$ = Literal($1, kKindInteger); }
    | REAL                    { $$ = Literal($1, kKindReal); }
    | STRING                  { $$ = Literal($1, kKindString); }
    ;

atom: IDENTIFIER              { $$ = Literal($1, kKindIdentifier); }
    | literal
    | '(' expr ')'            { $$ = $2; }
    | IDENTIFIER '(' ')'      { $$ = Call(scanner, $1, nullptr, $3); }
    | IDENTIFIER '(' arguments ')' { $$ = Call(scanner, $1, $3, $4); }
    ;

arguments: expr               { $$ = Arguments(scanner, $1); }
    | arguments ',' expr      { $$ = AddArgument($1, $3); }
    ;

%%

namespace {

int qmk_formula_lex(CExtFormulaItem** value, CExtFormulaScanner& scanner) {
  const int code = scanner.NextToken();
  if (code == kTokenEnd) return TOK_YYEOF;
  *value = scanner.TokenNode();
  switch (code) {
    case kTokenReal: return TOK_REAL;
    case kTokenInteger: return TOK_INTEGER;
    case kTokenString: return TOK_STRING;
    case kTokenIdentifier: return TOK_IDENTIFIER;
    case kTokenGreaterOrEqual: return TOK_GE;
    case kTokenLessOrEqual: return TOK_LE;
    case kTokenNotEqual: return TOK_NE;
    default: return code;  // a single character stands for itself
  }
}

}  // namespace

namespace qmk::toolkit::formula {

int RunFormulaParser(CExtFormulaScanner& scanner) { return qmk_formula_parse(scanner); }

}  // namespace qmk::toolkit::formula
