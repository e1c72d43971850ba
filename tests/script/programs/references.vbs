' Arguments are references, whether or not the called procedure shows it.
Sub Main()
x = 1 : y = 2 : swap x, y : PrintString x & y '> 21
swap (x), (y) : PrintString x & y '> 21
Call swap(x, y) : PrintString x & y '> 12
Dim a(3)
a(1) = "one" : a(2) = "two" : swap a(1), a(2) : PrintString a(1) & a(2) '> twoone
fill a : PrintString a(3)  '> filled
keep x : PrintString x     '> 1
PrintString twice(x) & x   '> 21
n = 3 : chain n : PrintString n '> 13
InputString a(0) : PrintString a(0) '> typed
InputString n : PrintString n '> typed
both n, n : PrintString n  '> changedchanged
alias n, n                 '> second
g = "global" : readsGlobal g '> changed
PrintString g              '> changed
m = 5 : PrintString m + bump(m) '> 11
PrintString bump(m) + m    '> 14
r = 10 : PrintString total(r) '> 55
PrintString r              '> 10
End Sub
Dim g
Sub swap(a, ByRef b)
t = a : a = b : b = t
End Sub
Sub alias(changed, read)
changed = "second" : PrintString read
End Sub
Sub fill(list)
list(3) = "filled"
End Sub
Sub keep(ByVal v)
v = v + 1
End Sub
Function twice(v)
twice = v * 2
End Function
Sub chain(c)
add10 c
End Sub
Sub add10(d)
d = d + 10
End Sub
Sub both(p, q)
p = "changed" : q = p & q
End Sub
Sub readsGlobal(p)
g = "changed" : PrintString p
End Sub
Function bump(b)
b = b + 1 : bump = b
End Function
Function total(n)
if n = 0 then
total = 0
else
total = n + total(n - 1)
end if
End Function
