-- esquema provisional
CREATE TABLE Config (IVA REAL);
