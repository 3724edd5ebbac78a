#!/usr/bin/env bash
# Compares the scripts of both databases: the production one, in the words of the embedded one, must say the same. A
# name that is not repeated as it should be, of a table, an index, a column or a constraint, stays untranslated. SQLite
# takes a text of any length: there a column's width is a condition of its own.
# Usage: esquemas.sh SOURCE_FOLDER
set -euo pipefail

# One statement a line, without comments, with single blanks.
sentencias() { sed -E 's/ *--.*//; s/^GO$/;/' "$1" | tr -s ' \n' ' ' | sed -E 's/^ //; s/ ?; ?/\n/g'; }
# A column or a condition a line, so that a difference shows where it is.
en_lineas() { sed -E 's/(, | AND )/\1\n/g'; }

embebida() {
    sentencias "$1/schema/sqlite/esquema.sql" |
        sed -E 's/ COLLATE NOCASE| WITHOUT ROWID| LIMIT 1//g; /^CREATE TABLE Procedimientos /d' | en_lineas
}

# The parameters in the order in which the component sends them, since a driver may pass them by position.
comunes="@Empresa smallint, @Cliente int, @Articulo int, @Familia1 smallint, @Familia2 smallint, @Familia3 smallint,"
comunes+=" @Nivel tinyint, @Niveles tinyint, @EmpFamilia1 bit, @EmpFamilia2 bit, @EmpFamilia3 bit"
cuerpo="@Dto money OUTPUT AS BEGIN SET NOCOUNT ON "
guardado="INSERT INTO Procedimientos (Nombre, Cuerpo) VALUES ('\1', ' "

produccion() {
    sentencias "$1/schema/sqlserver/esquema.sql" | sed -E "
        /^SET |^IF OBJECT_ID\('(\w+)', 'P'\) IS NULL EXEC \('CREATE PROCEDURE \1 AS RETURN 0'\)/d
        s/^IF OBJECT_ID\('(\w+)', 'U'\) IS NULL (CREATE TABLE \1 )/\2/
        :indice
        s/^(IF OBJECT_ID\('(\w+)', 'U'\) IS NULL BEGIN CREATE TABLE \2 .*) (CREATE INDEX IX_\2\w* ON \2 )/\1\n\3/
        t indice
        s/^IF OBJECT_ID\('(\w+)', 'U'\) IS NULL BEGIN (CREATE TABLE \1 .*) END$/\2/
        :tabla
        s/^(CREATE TABLE (\w+) .*)CONSTRAINT DF_\2_/\1DF /
        t tabla
        s/ datetime / date /g
        s/([^T]) NULL,/\1,/g
        s/'([0-9]{4})([0-9]{2})([0-9]{2})'/'\1-\2-\3'/g
        s/CONVERT\(date, GETDATE\(\)\)/date('now', 'localtime')/g
        s/\b(\w+) (\S+) NOT NULL DF \1 DEFAULT (\(([^()]*)\)|)/\1 \2 NOT NULL DEFAULT \4/g
        s/^(CREATE TABLE (\w+) .*)CONSTRAINT PK_\2 PRIMARY KEY CLUSTERED /\1PRIMARY KEY /
        s/\b(\w+) varchar\(([0-9]+)\)( NOT NULL)?( DEFAULT '')?,/\1 varchar(\2)\3\4 CHECK (length(\1) <= \2),/g
        s/^ALTER PROCEDURE (KVP_DevDtoDescuentosFamilias) $comunes, $cuerpo/$guardado/
        s/^ALTER PROCEDURE (KVP_DevDtoClientesGrupos) $comunes, @Unidades money, $cuerpo/$guardado/
        s/SET @Dto = COALESCE/SELECT COALESCE/
        s/\(SELECT Descuento /(SELECT, without TOP 1, Descuento /g
        s/SELECT TOP 1 /SELECT /g
        s/ RETURN 0 END$/ AS Dto')/" | en_lineas
}

[ "$(embebida "$1" | grep -c '^CREATE TABLE')" -ge 40 ] || { echo "faltan tablas"; exit 1; }
diff -u -F '^CREATE' --label sqlite <(embebida "$1") --label sqlserver <(produccion "$1")
