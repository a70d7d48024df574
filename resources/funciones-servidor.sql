-- Lo español del servidor, lo mismo que cada conexión registra en el fichero: el cotejo ES (orden
-- español: "ñ" tras "n", acentos como diferencia menor), LIKE sin mayúsculas ni acentos y con la
-- "ñ" plegada en "n", UCASE y UPPER de todo Unicode, y FECHA_VISIBLE (una fecha "AAAA-MM-DD"
-- como la ve el usuario, "dd/mm/aaaa"). El programa abre sus conexiones con
-- search_path = public, pg_catalog: estas funciones y operadores van antes que los del sistema.

CREATE EXTENSION IF NOT EXISTS unaccent WITH SCHEMA public;

CREATE COLLATION IF NOT EXISTS public.es (provider = icu, locale = 'es');

CREATE OR REPLACE FUNCTION public.pliega(text) RETURNS text
    LANGUAGE sql STABLE STRICT PARALLEL SAFE
    AS $$ SELECT pg_catalog.lower(public.unaccent('public.unaccent'::regdictionary, $1) COLLATE public.es) $$;

CREATE OR REPLACE FUNCTION public.parecido(text, text) RETURNS boolean
    LANGUAGE sql STABLE STRICT PARALLEL SAFE
    AS $$ SELECT public.pliega($1) OPERATOR(pg_catalog.~~) public.pliega($2) $$;

CREATE OR REPLACE FUNCTION public.no_parecido(text, text) RETURNS boolean
    LANGUAGE sql STABLE STRICT PARALLEL SAFE
    AS $$ SELECT NOT public.parecido($1, $2) $$;

CREATE OPERATOR public.~~ (LEFTARG = text, RIGHTARG = text, FUNCTION = public.parecido,
                           NEGATOR = OPERATOR(public.!~~));
CREATE OPERATOR public.!~~ (LEFTARG = text, RIGHTARG = text, FUNCTION = public.no_parecido,
                            NEGATOR = OPERATOR(public.~~));

CREATE OR REPLACE FUNCTION public.upper(text) RETURNS text
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS $$ SELECT pg_catalog.upper($1 COLLATE public.es) $$;

CREATE OR REPLACE FUNCTION public.ucase(text) RETURNS text
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS $$ SELECT pg_catalog.upper($1 COLLATE public.es) $$;

CREATE OR REPLACE FUNCTION public.fecha_visible(text) RETURNS text
    LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE
    AS $$ SELECT CASE WHEN $1 ~ '^[0-9]{4}-[0-9]{2}-[0-9]{2}$' THEN substr($1, 9, 2) || '/' || substr($1, 6, 2) || '/' || substr($1, 1, 4) ELSE $1 END $$;
