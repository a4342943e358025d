-- All tables and views of a database but the system's own, in the order in which they were made.
select c.oid::int, c.relname as name, n.nspname as schema, c.relkind as kind, coalesce(obj_description(c.oid, 'pg_class'), '') as comment,
  (select coalesce(json_agg(json_build_array(attname, format_type(atttypid, atttypmod), attnotnull,
                                             coalesce(col_description(c.oid, attnum), '')) order by attnum), '[]')
   from pg_attribute where attrelid = c.oid and attnum > 0) as columns,
  (select coalesce(json_agg(json_build_object('name', conname, 'kind', contype, 'columns', conkey, 'parent', confrelid::int,
                                              'referenced', confkey, 'delete', confdeltype, 'update', confupdtype) order by oid), '[]')
   from pg_constraint where conrelid = c.oid) as constraints,
  (select coalesce(json_agg(json_build_object('name', x.relname, 'columns', i.indkey::int[], 'options', i.indoption::int[],
                                              'unique', i.indisunique) order by x.oid), '[]')
   from pg_index i join pg_class x on x.oid = i.indexrelid
   where i.indrelid = c.oid and not exists (select from pg_constraint where conindid = x.oid and conrelid = c.oid)) as indexes
from pg_class c join pg_namespace n on n.oid = c.relnamespace
where c.relkind in ('r', 'v') and c.oid >= 16384 order by c.oid
