-- All tables and views of a server but its own, and what they have, each as a row of JSON that begins with what it is.
select json_array('table', table_schema, table_name, table_type, if(table_type = 'VIEW', '', table_comment))
from information_schema.tables where table_schema not in ('mysql', 'sys', 'information_schema', 'performance_schema');
select json_array('column', table_schema, table_name, column_name, column_type, is_nullable = 'NO', column_comment)
from information_schema.columns where table_schema not in ('mysql', 'sys', 'information_schema', 'performance_schema')
order by table_schema, table_name, ordinal_position;
select json_array('index', table_schema, table_name, index_name, non_unique = 0, column_name, collation = 'D')
from information_schema.statistics where table_schema not in ('mysql', 'sys', 'information_schema', 'performance_schema')
order by table_schema, table_name, index_name, seq_in_index;
select json_array('pair', table_schema, table_name, constraint_name, column_name, referenced_table_schema, key_column_usage.referenced_table_name,
                  referenced_column_name, delete_rule, update_rule)
from information_schema.key_column_usage
join information_schema.referential_constraints using (constraint_schema, constraint_name, table_name)
where key_column_usage.referenced_table_name is not null order by table_schema, table_name, constraint_name, ordinal_position;
