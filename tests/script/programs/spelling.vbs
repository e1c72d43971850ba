' What may be written where: signs without blanks, words as names, parentheses.
Class Word
Public [], default, Property
Dim get
Public Property Get Class : [Class] = "class" : End Property
Public Sub End : PrintString "end" : End Sub
Public Function [rem](step, error) : [rem] = step & error : End Function
Public Default Property Get Me(n) : [Me] = n : End Property
End Class
Dim [], preserve
Sub Main()
x = "a" &_
"b" & pair(1,_
2)_
& "c"
PrintString x                          '> ab12c
If &h01or False Then PrintString &o17or &h10&and 17 '> 31
[] = "unnamed"
PrintString []                         '> unnamed
Set o = New Word
o.[] = 1 : o.default = 2 : o.property = 3 : o.get = 4
PrintString o.[] & o.default & o.property & o.get & o.class '> 1234class
o.end                                  '> end
PrintString o.rem(5, 6)                '> 56
With o
PrintString .rem(7, 8)                 '> 78
End With
Call (New Word).End()                  '> end
Call (o).End                           '> end
f = Array("zero", Array("ten", "eleven"))
PrintString (f)(0)                     '> zero
PrintString (f)(1)(0) & "!"            '> ten!
f (1)(0) = "changed"
PrintString f(1)(0)                    '> changed
If x <> "" Then
If x <> "" Then PrintString "inner" End If '> inner
y = 1 End If
PrintString y                          '> 1
ReDim preserve(2)
PrintString UBound(preserve)           '> 2
PrintString TypeName(+"5") & +"text"   '> Stringtext
PrintString UBound(Eval("Array(" & String(299, ",") & ")")) '> 299
End Sub
Function pair(a,_
b)
pair = a & b
End Function
