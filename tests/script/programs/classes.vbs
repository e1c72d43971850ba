Class Counter
Private count_
Public Name
Private list(2)
Private Sub Class_Initialize()
count_ = 10 : Name = "counter" : PrintString "made"
End Sub
Private Sub Class_Terminate()
PrintString "gone " & Name
End Sub
Public Default Property Get Value()
Value = count_
End Property
Public Property Let Value(v)
count_ = v
End Property
Public Property Get Item(i)
Item = list(i)
End Property
Public Property Let Item(i, v)
list(i) = v
End Property
Public Property Set Friend(o)
Set other = o : Name = "friend of " & o.Name
End Property
Public other
Function Add(ByVal n)
count_ = count_ + n : Add = secret(count_)
End Function
Private Function secret(n)
secret = n * 2
End Function
Sub Recurse(n)
If n > 0 Then Recurse n - 1 Else PrintString Me.Name & " bottom"
End Sub
Sub Both(a, b)
a = a + 1 : b = b + 1
End Sub
End Class
Sub Main()
Set c = New Counter        '> made
PrintString c              '> 10
PrintString c + 5          '> 15
c.Value = 20 : PrintString c.Value '> 20
PrintString c.Add(1)       '> 42
c.Item(1) = "first" : PrintString c.Item(1) & c.Item(0) '> first
c.Recurse 3                '> counter bottom
x = 1 : y = 2 : c.Both x, y : PrintString x & y '> 23
PrintString TypeName(c)    '> Counter
Set d = c : PrintString (d Is c) & (d Is Nothing) '> TrueFalse
Set c = Nothing : PrintString d.Name '> counter
Set e = New Counter        '> made
e.Name = "e" : Set d.Friend = e : PrintString d.Name '> friend of e
With d
.Name = "with" : PrintString .Name & .Add(1) '> with44
End With
v = d : PrintString TypeName(v) '> Integer
Set d = Nothing            '> gone with
Set e = Nothing            '> gone e
first                      '> made
'> gone first
Dim many(2)
Set many(0) = New Counter  '> made
many(0).Name = "element" : PrintString many(0).Name '> element
Erase many                 '> gone element
Set k = New Node : Set k.nxt = New Node : Set k.nxt.nxt = k
k.nxt.label = "second" : PrintString k.nxt.nxt.nxt.label '> second
On Error Resume Next
k.missing = 1 : PrintString Err.Number : Err.Clear '> 438
PrintString k.hidden : PrintString Err.Number : Err.Clear '> 438
Set q = New Unknown : PrintString Err.Number : Err.Clear '> 506
Set q = 5 : PrintString Err.Number : Err.Clear '> 424
q.x = 5 : PrintString Err.Number : Err.Clear '> 424
Set q = Nothing : q.x = 5 : PrintString Err.Number '> 91
PrintString k.values(1)    '> b
End Sub
Sub first
Set l = New Counter : l.Name = "first"
End Sub
Class Node
Public nxt, label
Private hidden
Public Property Get values
values = Array("a", "b")
End Property
End Class
